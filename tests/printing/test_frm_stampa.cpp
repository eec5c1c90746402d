// The page set-up dialog in both modes: what it opens with, and what is told instead.
#include "language/language.h"
#include "printing/stampa_desk.h"
#include "support/application_folder.h"
#include "support/registered_tests.h"

#include <QTest>
#include <QWidget>

using namespace platform;

class TestFrmStampa : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aPrintOpensWithItsNumbers()
    {
        Desk desk;
        Stampa.NumeroCopie = 0;
        desk.Open([&](FrmStampa &dialog) {
            QCOMPARE(dialog.Caption(), QStringLiteral("  Stampa morlena Prova"));
            QCOMPARE(dialog.txtPrX.Text(), QStringLiteral("10"));
            QCOMPARE(dialog.txtPrY.Text(), QStringLiteral("10"));
            QCOMPARE(dialog.txtPrW.Text(), QStringLiteral("100"));
            QCOMPARE(dialog.txtPrH.Text(), QStringLiteral("100"));
            QCOMPARE(dialog.txtNCopies.Text(), QStringLiteral("1"));
            QCOMPARE(Stampa.NumeroCopie, 1);
            QVERIFY(dialog.cmdStampa.Visible());
            QVERIFY(!dialog.cmdOK.Visible());
            QVERIFY(!dialog.imgPrinter.Visible());
            for (const VisualControl *scale : std::initializer_list<const VisualControl *>{
                     &dialog.lblLblScala, &dialog.lblPScala, &dialog.txtScala, &dialog.cmdScalaOK})
                QVERIFY(!scale->Visible());
            QCOMPARE(dialog.cboPrinterNames.ListCount(), 2);
            QCOMPARE(dialog.cboPrinterNames.Text(), QStringLiteral("Prima"));
            QCOMPARE(dialog.lblFgW.Caption(), QStringLiteral("200"));
            QCOMPARE(dialog.lblFgH.Caption(), QStringLiteral("280"));
            QVERIFY(!dialog.lblFuoriFoglio.Visible());
            QVERIFY(!dialog.Timer1.Enabled());
            QCOMPARE(dialog.Left(), (ScreenWidth() - dialog.Width()) / 2);
            QCOMPARE(dialog.Top(), (ScreenHeight() - dialog.Height()) / 2);
            QVERIFY(dialog.cmdStampa.Font().Bold && dialog.cmdOK.Font().Bold);
            QCOMPARE(dialog.cmdOrigine.ToolTipText(), QStringLiteral("Imposta i margini a 0"));
            QCOMPARE(dialog.cmdMax.ToolTipText(), QStringLiteral("Usa tutto il foglio"));
            QCOMPARE(dialog.txtScala.ToolTipText(), QStringLiteral("Nuovo valore + Invio"));
            QVERIFY(dialog.chkProporzioni.Value());
            QVERIFY(!dialog.chkCentro.Value());
            QCOMPARE(dialog.Width(), 5640.0);
            QCOMPARE(dialog.Height(), 6615.0);
            QCOMPARE(Stampa.Rapporto, 1.0F);
            QCOMPARE(dialog.Window()->focusWidget(), dialog.cmdStampa.Widget());
            QCOMPARE(Stampa.DevMode.Orientation, int16_t{1});
        });
        QCOMPARE(desk.Activations, 1);
        QCOMPARE(desk.Host.Printer.Allocated(), 0);
    }

    void setUpModeHidesCopiesAndTakesThePrinterOnlyWhenConfirmed()
    {
        Desk desk;
        desk.Open({}, [&](FrmStampa &dialog) {
            QCOMPARE(dialog.Caption(), QStringLiteral("  Impostazioni stampante"));
            QVERIFY(dialog.cmdOK.Visible());
            QVERIFY(!dialog.cmdStampa.Visible());
            QVERIFY(dialog.imgPrinter.Visible());
            QCOMPARE(dialog.Window()->focusWidget(), dialog.cmdOK.Widget());
            QVERIFY(!dialog.txtNCopies.Visible());
            QVERIFY(!dialog.updNCopies.Visible());
            QVERIFY(!dialog.lblLblNCopie.Visible());
            dialog.cboPrinterNames.SetListIndex(1);
            QCOMPARE(Stampa.NomeStampante, QStringLiteral("Prima"));
        });
        QCOMPARE(Stampa.NomeStampante, QStringLiteral("Prima"));
        QVERIFY(!Stampa.OggettoValido);
        desk.Open({}, [&](FrmStampa &dialog) {
            dialog.cboPrinterNames.SetListIndex(1);
            dialog.cmdOK.OnClick();
        });
        QCOMPARE(Stampa.NomeStampante, QStringLiteral("Seconda"));
        desk.Open([&](FrmStampa &dialog) {
            QCOMPARE(dialog.cboPrinterNames.Text(), QStringLiteral("Seconda"));
        });
    }

    void setUpModeKnowsNothingOfAnEarlierPrint()
    {
        Desk desk;
        RichiestaStampa request = desk.Request();
        request.X = 180; // off the sheet
        request.W = 90;
        request.H = 60;
        desk.Open(request, [&](FrmStampa &dialog) {
            dialog.txtNCopies.SetText(QStringLiteral("3"));
            dialog.Window()->close(); // gives nothing back
        });
        desk.Open({}, [&](FrmStampa &dialog) {
            QCOMPARE(QStringList({dialog.txtPrX.Text(), dialog.txtPrY.Text(), dialog.txtPrW.Text(),
                                  dialog.txtPrH.Text()}),
                     QStringList({{}, {}, {}, {}}));
            QCOMPARE((QList<int>{Stampa.MargineX, Stampa.MargineY, Stampa.StampaW, Stampa.StampaH}),
                     (QList<int>{0, 0, 0, 0}));
            QCOMPARE(Stampa.Rapporto, 0.0F);
            QCOMPARE(Stampa.LarghezzaOrigine, 0.0F);
            QCOMPARE(Stampa.TitoloStampa, QString());
            dialog.chkCentro.SetValue(true);
            QCOMPARE(Stampa.MargineX, 100); // half of the sheet, for nothing to print
            QVERIFY(!dialog.lblFuoriFoglio.Visible());
            // What outlives the dialog.
            QCOMPARE(Stampa.NomeStampante, QStringLiteral("Prima"));
            QCOMPARE(Stampa.NumeroCopie, 3);
            QCOMPARE(Stampa.DevMode.Orientation, int16_t{1});
            QVERIFY(Stampa.hStampante != 0);
        });
        QCOMPARE(desk.Host.Printer.OpenPrinters, 1);
    }

    void ofEqualNamesTheLastIsChosenAndOfNoneTheFirst()
    {
        Desk desk;
        desk.Host.Printer.Names = {QStringLiteral("Prima"), QStringLiteral("Seconda"),
                                   QStringLiteral("Prima")};
        desk.Open([&](FrmStampa &dialog) { QCOMPARE(dialog.cboPrinterNames.ListIndex(), 2); });
        Stampa.NomeStampante = QStringLiteral("Terza");
        desk.Open([&](FrmStampa &dialog) { QCOMPARE(dialog.cboPrinterNames.ListIndex(), 0); });
    }

    void orientationIsAskedForOrLeftAsItIs()
    {
        Desk desk;
        RichiestaStampa request = desk.Request();
        request.Orientamento = 2;
        desk.Open(request, [&](FrmStampa &dialog) {
            QCOMPARE(Stampa.DevMode.Orientation, int16_t{2});
            QCOMPARE(dialog.lblFgW.Caption(), QStringLiteral("280"));
            dialog.Unload(); // by the window frame: the record stays
        });
        request.Orientamento.reset();
        desk.Open(request, [&](FrmStampa &) {
            QCOMPARE(Stampa.OrientamentoRichiesto, 0);
            QCOMPARE(Stampa.DevMode.Orientation, int16_t{2});
        });
    }

    void withoutATitleTheDocumentHasTheObjectsName()
    {
        Desk desk;
        RichiestaStampa request = desk.Request();
        request.Titolo.reset();
        desk.Open(request,
                  [&](FrmStampa &) { QCOMPARE(Stampa.TitoloStampa, QStringLiteral("Finestra")); });
        request.Titolo = QString();
        desk.Open(request, [&](FrmStampa &dialog) {
            QCOMPARE(Stampa.TitoloStampa, QString());
            QCOMPARE(dialog.Caption(), QStringLiteral("  Stampa morlena "));
        });
    }

    void theRatioComesFromTheNumbersAndTheScaleFromTheObjectOrTheCaller()
    {
        Desk desk;
        RichiestaStampa request = desk.Request();
        request.W = 90;
        request.H = 60;
        desk.Open(request, [&](FrmStampa &dialog) {
            QCOMPARE(Stampa.Rapporto, 1.5F);
            QCOMPARE(Stampa.LarghezzaOrigine, static_cast<float>(desk.Owner->ScaleWidth()));
            QVERIFY(!dialog.txtScala.Text().isEmpty());
        });
        request.Scala = 2;
        desk.Open(request, [&](FrmStampa &dialog) {
            QCOMPARE(Stampa.LarghezzaOrigine, 180.0F);
            QVERIFY(dialog.txtScala.Text().startsWith(QLatin1Char('2')));
        });
        request.Scala.reset();
        request.Oggetto = static_cast<Control *>(desk.Picture.get());
        desk.Open(request, [&](FrmStampa &) { QCOMPARE(Stampa.LarghezzaOrigine, 900.0F); });
    }

    void onlyAPrintIsLaidOutInTheLanguage()
    {
        Desk desk;
        const ApplicationFolder folder(desk.Host);
        folder.WriteLanguage("[frmStampa]\r\ncmdChiudi.Caption=Fertig\r\n");
        LinguaCorrente = QStringLiteral("prova");
        desk.Open([&](FrmStampa &dialog) {
            QCOMPARE(dialog.cmdChiudi.Caption(), QStringLiteral("Fertig"));
        });
        // The set-up alone keeps its design: meant.
        desk.Open({}, [&](FrmStampa &dialog) {
            QCOMPARE(dialog.cmdChiudi.Caption(), QStringLiteral("&Chiudi"));
        });
    }

    void whatCannotBePrintedIsToldWithoutADialog()
    {
        Desk desk;
        Label label({*desk.Owner, "Etichetta"}, {0, 0, 100, 100});
        Image image({*desk.Owner, "Immagine"}, {0, 0, 100, 100});
        RichiestaStampa request = desk.Request();
        request.Oggetto = static_cast<Control *>(&label);
        desk.ExpectError(QStringLiteral("Stampa di Etichetta\n\nL' oggetto da stampare\ne' di tipo "
                                        "errato."));
        StampaFPB(request);
        request.Oggetto = static_cast<Control *>(&image);
        desk.ExpectError(QStringLiteral("Stampa di Immagine\n\nL' oggetto da stampare\ne' di tipo "
                                        "errato."));
        StampaFPB(request);
        request.Oggetto = static_cast<Form *>(nullptr);
        desk.ExpectError(QStringLiteral("L' oggetto da stampare\ne' di tipo errato."));
        StampaFPB(request);
        request = desk.Request();
        request.H.reset();
        desk.ExpectError(QStringLiteral("Parametri errati."));
        StampaFPB(request);
        QCOMPARE(desk.Activations, 0);
    }

    void withoutAPrinterThereIsNoDialog()
    {
        Desk desk;
        desk.Host.Printer.Default.clear();
        desk.ExpectError(QStringLiteral("Stampante di default non specificata."),
                         "GetDefPrinterName");
        StampaFPB(desk.Request());
        desk.Host.Printer.Default = QStringLiteral("Terza");
        desk.ExpectError(MLSTesto(QStringLiteral("0098")) + QStringLiteral("\n"), "OpenDocPrinter");
        StampaFPB(desk.Request());
        QCOMPARE(desk.Activations, 0);
    }

    void aWindowThatCannotBeReadEndsWithTwoBoxesAndNoDialog()
    {
        Desk desk;
        desk.Host.Printer.BitsPerPixel = 32;
        desk.ExpectError(QStringLiteral("Formato grafico sconosciuto.\n\n") +
                             MLSTesto(QStringLiteral("0099")),
                         "Legge_Form");
        desk.ExpectError(QStringLiteral("Si e' verificata una condizione\ninaspettata elaborando "
                                        "l' immagine."));
        StampaFPB(desk.Request());
        QVERIFY(Form::Find(QStringLiteral("frmStampa")) == nullptr);
        QCOMPARE(desk.Activations, 0);
        QVERIFY(!desk.Host.Ended);
    }

    void whenThePrintersWentAwayTheDialogStillOpens()
    {
        Desk desk;
        desk.Open([](FrmStampa &) {});
        desk.Host.Printer.Names.clear();
        desk.Open([&](FrmStampa &dialog) {
            QCOMPARE(dialog.cboPrinterNames.ListCount(), 0);
            QCOMPARE(desk.Host.FatalNumber, 0);
        });
    }
};

MORLENE_TEST(TestFrmStampa)
#include "test_frm_stampa.moc"
