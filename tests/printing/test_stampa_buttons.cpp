// The page set-up dialog's buttons, and what is left when it closes.
#include "language/language.h"
#include "printing/stampa_desk.h"
#include "support/registered_tests.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QTest>

using namespace platform;

class TestStampaButtons : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theDriversCopiesComeBackAndAreNotMultiplied()
    {
        Desk desk;
        desk.Host.Printer.Dialog = [](DeviceMode &mode) {
            mode.Copies = 7;
            mode.Orientation = 2;
            return 1;
        };
        desk.Open([&](FrmStampa &dialog) {
            dialog.txtNCopies.SetText(QStringLiteral("4"));
            dialog.cmdProprieta.OnClick();
            QCOMPARE(desk.Host.Printer.Judged.last().Copies, int16_t{4});
            QCOMPARE(dialog.txtNCopies.Text(), QStringLiteral("7"));
            QCOMPARE(Stampa.NumeroCopie, 7);
            QCOMPARE(Stampa.DevMode.Copies, int16_t{1});
            QCOMPARE(dialog.lblFgW.Caption(), QStringLiteral("280"));
            dialog.cmdStampa.OnClick();
        });
        QCOMPARE(desk.Host.Printer.Documents.size(), qsizetype{7});
        QCOMPARE(desk.Host.Printer.Documents.first().Mode.Copies, int16_t{1});
    }

    void aPrinterThatWentAwayLeavesTheFormerSheet()
    {
        Desk desk;
        desk.Open([&](FrmStampa &dialog) {
            const QList<int> before = PlaceOf(dialog.picPreview);
            desk.Host.Printer.Names.clear();
            desk.ExpectError(MLSTesto(QStringLiteral("0098")) + QStringLiteral("\n"),
                             "OpenDocPrinter");
            dialog.cboPrinterNames.SetListIndex(1);
            QCOMPARE(PlaceOf(dialog.picPreview), before);
            QCOMPARE(dialog.lblFgW.Caption(), QStringLiteral("200"));
            dialog.cmdProprieta.OnClick();
            QCOMPARE(PlaceOf(dialog.picPreview), before);
        });
    }

    void anotherPrinterShowsItsSheetAndThePrintGoesToTheFirst()
    {
        Desk desk;
        RichiestaStampa request = desk.Request();
        request.X = request.Y = 0;
        desk.Open(request, [&](FrmStampa &dialog) {
            dialog.cboPrinterNames.SetListIndex(1);
            QCOMPARE(dialog.lblFgW.Caption(), QStringLiteral("100"));
            dialog.cmdStampa.OnClick();
        });
        QCOMPARE(desk.Host.Printer.Documents.first().Printer, QStringLiteral("Prima"));
        QCOMPARE(Stampa.NomeStampante, QStringLiteral("Prima"));
    }

    void printingShowsItsLabelAndCloses()
    {
        Desk desk;
        desk.Open([&](FrmStampa &dialog) {
            desk.Host.TakeEvents();
            dialog.cmdStampa.OnClick();
            QVERIFY(dialog.Unloaded());
        });
        const QStringList events = desk.Host.TakeEvents();
        const auto shown = events.indexOf(QStringLiteral("lblStampaInCorso.Visible=True"));
        const auto busy = events.indexOf(QStringLiteral("frmStampa.MousePointer=11"));
        const auto ready = events.indexOf(QStringLiteral("frmStampa.MousePointer=0"));
        QVERIFY(shown >= 0 && shown < busy && busy < ready);
        QCOMPARE(desk.Host.Printer.Documents.size(), qsizetype{1});
        QCOMPARE(desk.Host.Printer.Documents.first().Title, QStringLiteral("Prova"));
        QCOMPARE(desk.Activations, 1);
    }

    void aPrintThatFailedClosesTheDialogToo()
    {
        Desk desk;
        desk.Open([&](FrmStampa &dialog) {
            desk.Host.Printer.Answers[QStringLiteral("StartDocument")] = {-1};
            desk.ExpectError(QStringLiteral("Errore di StartDoc"), "Print_Form");
            dialog.cmdStampa.OnClick();
            QVERIFY(dialog.Unloaded());
        });
    }

    void cancellingTheQuestionLeavesTheDialogAndItsLabel()
    {
        Desk desk;
        desk.Open([&](FrmStampa &dialog) {
            Type(dialog.txtPrX, QStringLiteral("150"));
            desk.Host.ExpectBox(MLSTesto(QStringLiteral("0093")) + QStringLiteral("\n") +
                                    MLSTesto(QStringLiteral("0094")) + QStringLiteral("\n") +
                                    MLSTesto(QStringLiteral("0095")) + QStringLiteral("\n\n") +
                                    MLSTesto(QStringLiteral("0096")),
                                BoxAnswer::Cancel);
            dialog.cmdStampa.OnClick();
            QVERIFY(!dialog.Unloaded());
            const Label &label = dialog.lblStampaInCorso;
            QVERIFY(label.Visible());
            QCOMPARE(label.Left(), (dialog.picPreview.ScaleWidth() * 15 - label.Width()) / 2);
            QCOMPARE(label.Top(), (dialog.picPreview.ScaleHeight() * 15 - label.Height()) / 2);
            QCOMPARE(dialog.MousePointer(), platform::MousePointer::Default);
            QVERIFY(Stampa.MemoriaImmagine != nullptr);
        });
        QVERIFY(!Stampa.MemoriaImmagine);
        QCOMPARE(desk.Host.Printer.Allocated(), 0);
    }

    void closingGivesEverythingBack()
    {
        Desk desk;
        Stampa.NumeroCopie = 3;
        Stampa.NomeStampante = QStringLiteral("Prima");
        Stampa.DevMode.Paper = QStringLiteral("A4");
        const DeviceMode before = Stampa.DevMode;
        desk.Open([&](FrmStampa &dialog) {
            dialog.updNCopies.Up();
            QCOMPARE(Stampa.NumeroCopie, 4);
            dialog.cmdChiudi.OnClick();
        });
        QCOMPARE(Stampa.NumeroCopie, 3);
        QCOMPARE(Stampa.DevMode, before);
        QCOMPARE(desk.Host.Printer.Allocated(), 0);
        QCOMPARE(desk.Activations, 1);
    }

    void theWindowFrameClosesWithoutGivingBack()
    {
        Desk desk;
        desk.Open([&](FrmStampa &dialog) {
            dialog.updNCopies.Up();
            dialog.Window()->close();
        });
        QCOMPARE(Stampa.NumeroCopie, 2);
        // Sizes and margins start anew.
        desk.Open([&](FrmStampa &dialog) {
            QCOMPARE(dialog.txtPrW.Text(), QStringLiteral("100"));
            QCOMPARE(dialog.txtNCopies.Text(), QStringLiteral("2"));
        });
    }

    void theNamesLabelSavesThePreview()
    {
        Desk desk;
        const QString folder = QDir::currentPath();
        QVERIFY(QDir::setCurrent(desk.Host.Drive.path()));
        desk.Open([&](FrmStampa &dialog) {
            QTest::mouseDClick(dialog.Label1.Widget(), Qt::LeftButton);
            const QImage saved(desk.Host.Drive.filePath(QStringLiteral("PicPrev.bmp")));
            QCOMPARE(saved.size(),
                     QSize(dialog.picPreview.ScaleWidth(), dialog.picPreview.ScaleHeight()));
            QVERIFY(QFile::remove(desk.Host.Drive.filePath(QStringLiteral("PicPrev.bmp"))));
            QVERIFY(QDir().mkdir(QStringLiteral("PicPrev.bmp")));
            desk.ExpectError(RunTimeError(PathFileAccess, QStringLiteral("PicPrev.bmp")).Text(),
                             "Label1");
            QTest::mouseDClick(dialog.Label1.Widget(), Qt::LeftButton);
            QVERIFY(!dialog.Unloaded());
        });
        QVERIFY(QDir::setCurrent(folder));
    }
};

MORLENE_TEST(TestStampaButtons)
#include "test_stampa_buttons.moc"
