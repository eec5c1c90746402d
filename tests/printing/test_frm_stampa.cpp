// The page set-up dialog in both modes: what it opens with, the sheet, the fields, the buttons, and
// what is left when it closes.
#include "language/language.h"
#include "printing/frm_stampa.h"
#include "printing/print_engine.h"
#include "printing/stampa_fpb.h"
#include "support/exercise_fixture.h"
#include "support/registered_tests.h"

#include <QAccessible>
#include <QClipboard>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <sys/inotify.h>
#include <unistd.h>

#include <memory>

using namespace platform;

namespace {

class Desk {
public:
    Desk()
    {
        AzzeraStampa();
        LinguaCorrente.clear();
        Owner = new Form("Finestra", 6000, 4500);
        Picture =
            std::make_unique<PictureBox>(ControlId{*Owner, "Picture1", 3}, Place{0, 0, 900, 600});
        Owner->Show();
        Owner->OnActivate = [this] { ++Activations; };
        Host.Printer.RealPixels = true;
    }
    ~Desk()
    {
        Picture.reset();
        AzzeraStampa();
    }
    Desk(const Desk &) = delete;
    Desk &operator=(const Desk &) = delete;

    RichiestaStampa Request() const
    {
        return {.Oggetto = Owner,
                .X = 10,
                .Y = 10,
                .W = 100,
                .H = 100,
                .Orientamento = 1,
                .Titolo = QStringLiteral("Prova")};
    }
    // Opens the dialog, in which `person` does something; it is closed then if it is not yet.
    void Open(const RichiestaStampa &request, const std::function<void(FrmStampa &)> &person)
    {
        Host.ExpectModal([&](Form &form) {
            auto &dialog = dynamic_cast<FrmStampa &>(form);
            person(dialog);
            if (!dialog.Unloaded())
                dialog.cmdChiudi.OnClick();
        });
        StampaFPB(request);
    }
    void Open(const std::function<void(FrmStampa &)> &person) { Open(Request(), person); }

    void ExpectError(const QString &text, const char *routine = "StampaFPB")
    {
        Host.ExpectBox(
            Box{.Text = text,
                .Title = QStringLiteral(" Errore in frmStampaFPB/") + QString::fromLatin1(routine),
                .Icon = BoxIcon::Critical});
    }

    ScriptedHost Host;
    Form *Owner = nullptr;
    std::unique_ptr<PictureBox> Picture;
    int Activations = 0;
};

QList<int> PlaceOf(const VisualControl &control)
{
    return {static_cast<int>(control.Left()), static_cast<int>(control.Top()),
            static_cast<int>(control.Width()), static_cast<int>(control.Height())};
}

void Type(TextBox &box, const QString &keys)
{
    auto *line = static_cast<QLineEdit *>(box.Widget());
    line->selectAll();
    QTest::keyClicks(line, keys);
}

// A variable of the environment, for a while.
class ScopedVariable {
public:
    ScopedVariable(const char *name, const QByteArray &value)
        : m_name(name), m_set(qEnvironmentVariableIsSet(name)), m_former(qgetenv(name))
    {
        qputenv(name, value);
    }
    ~ScopedVariable()
    {
        if (m_set)
            qputenv(m_name, m_former);
        else
            qunsetenv(m_name);
    }
    ScopedVariable(const ScopedVariable &) = delete;
    ScopedVariable &operator=(const ScopedVariable &) = delete;

private:
    const char *m_name;
    bool m_set;
    QByteArray m_former;
};

// Names of the files that are made in a folder, also of those that are gone again.
class NewFiles {
public:
    explicit NewFiles(const QString &folder) : m_watch(inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
    {
        inotify_add_watch(m_watch, folder.toLocal8Bit().constData(), IN_CREATE | IN_MOVED_TO);
    }
    ~NewFiles() { close(m_watch); }
    NewFiles(const NewFiles &) = delete;
    NewFiles &operator=(const NewFiles &) = delete;

    QStringList Take() const
    {
        QStringList names;
        alignas(inotify_event) char buffer[4096];
        for (ssize_t read = 0; (read = ::read(m_watch, buffer, sizeof buffer)) > 0;)
            for (ssize_t at = 0; at < read;) {
                const auto *event = reinterpret_cast<const inotify_event *>(buffer + at);
                names << QString::fromLocal8Bit(event->name);
                at += static_cast<ssize_t>(sizeof *event + event->len);
            }
        return names;
    }

private:
    int m_watch;
};

QImage Preview(const FrmStampa &dialog)
{
    return dialog.picPreview.Widget()->grab().toImage();
}

// Whether the pixel of the preview shows the sheet.
bool IsPaper(const QImage &image, int x, int y)
{
    return image.pixelColor(x, y) == QColor(Qt::white);
}

} // namespace

class TestFrmStampa : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // --- Opening ---

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
            QVERIFY(!dialog.txtScala.Visible());
            QCOMPARE(dialog.cboPrinterNames.ListCount(), 2);
            QCOMPARE(dialog.cboPrinterNames.Text(), QStringLiteral("Prima"));
            QCOMPARE(dialog.lblFgW.Caption(), QStringLiteral("200"));
            QCOMPARE(dialog.lblFgH.Caption(), QStringLiteral("280"));
            QVERIFY(!dialog.lblFuoriFoglio.Visible());
            QVERIFY(!dialog.Timer1.Enabled());
            QCOMPARE(dialog.Left(), (ScreenWidth() - dialog.Width()) / 2);
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

    // --- The sheet and the preview ---

    void thePreviewKeepsTheShapeOfTheSheet_data()
    {
        QTest::addColumn<int>("width");
        QTest::addColumn<int>("height");
        QTest::addColumn<int>("w");
        QTest::addColumn<int>("h");
        QTest::newRow("upright") << 200 << 280 << 1361 << 1905;
        QTest::newRow("across") << 280 << 200 << 1905 << 1361;
        QTest::newRow("square") << 150 << 150 << 1905 << 1905;
        QTest::newRow("long") << 100 << 1000 << 190 << 1905;
    }
    void thePreviewKeepsTheShapeOfTheSheet()
    {
        QFETCH(int, width);
        QFETCH(int, height);
        QFETCH(int, w);
        QFETCH(int, h);
        Desk desk;
        desk.Host.Printer.Sheets[QStringLiteral("Prima")] = {width, height, width * 10,
                                                             height * 10};
        desk.Open([&](FrmStampa &dialog) {
            QCOMPARE(PlaceOf(dialog.shpFoglio), (QList<int>{1560, 240, w + 120, h + 120}));
            QCOMPARE(PlaceOf(dialog.shpBordo), (QList<int>{1605, 285, w + 30, h + 30}));
            QCOMPARE(PlaceOf(dialog.picPreview), (QList<int>{1620, 300, w, h}));
            // The sheet is white up to its edge.
            const QImage sheet = dialog.shpFoglio.Widget()->grab().toImage();
            QCOMPARE(sheet.pixelColor(2, sheet.height() / 2), QColor(Qt::white));
        });
    }

    // 127 pixels for 200 mm upright: the surface is 91 by 127; 100 mm are 46 and 45.
    void theImageLiesAtItsTruePlace()
    {
        Desk desk;
        desk.Owner->SetBackColor(Rgb(0xFF, 0, 0));
        RichiestaStampa request = desk.Request();
        request.X = 50;
        request.Y = 100;
        desk.Open(request, [&](FrmStampa &dialog) {
            QCOMPARE(dialog.picPreview.ScaleHeight(), 127);
            const QImage image = Preview(dialog);
            const int left = qRound(image.width() / 200.0 * 50);
            const int top = qRound(image.height() / 280.0 * 100);
            const int right = left + qRound(image.width() / 200.0 * 100) - 1;
            const int bottom = top + qRound(image.height() / 280.0 * 100) - 1;
            QVERIFY(IsPaper(image, left - 1, top + 5));
            QVERIFY(IsPaper(image, left + 5, top - 1));
            QVERIFY(IsPaper(image, right + 1, bottom));
            QVERIFY(IsPaper(image, right, bottom + 1));
            QCOMPARE(image.pixelColor(right, bottom), QColor(0xFF, 0, 0));
            QCOMPARE(image.pixelColor(right, top), QColor(0xFF, 0, 0));
        });
    }

    void aPictureIsFixedAndLaidOnTheSheetToo()
    {
        Desk desk;
        desk.Picture->SetBackColor(Rgb(0, 0x80, 0));
        RichiestaStampa request = desk.Request();
        request.Oggetto = static_cast<Control *>(desk.Picture.get());
        request.Titolo.reset();
        const QTemporaryDir folder;
        const ScopedVariable temporary("TMPDIR", folder.path().toLocal8Bit());
        const NewFiles files(folder.path());
        desk.Open(request, [&](FrmStampa &dialog) {
            QVERIFY(!desk.Picture->LoadedPicture().isNull());
            QCOMPARE(Stampa.TitoloStampa, QStringLiteral("Picture1"));
            const QImage image = Preview(dialog);
            QCOMPARE(image.pixelColor(20, 20), QColor(0, 0x80, 0));
            QVERIFY(IsPaper(image, 1, 1));
            dialog.cmdStampa.OnClick();
        });
        const QStringList made = files.Take();
        QCOMPARE(made.size(), qsizetype{1});
        QVERIFY2(made.first().startsWith(QStringLiteral("Fra")), qPrintable(made.first()));
        QVERIFY(QDir(folder.path()).isEmpty());
        QCOMPARE(desk.Host.Printer.Documents.size(), qsizetype{1});
        QVERIFY(desk.Host.Printer.Documents.first().Ended);
    }

    void offTheSheetIsSeenAtOnceAndBlinks()
    {
        Desk desk;
        desk.Open([&](FrmStampa &dialog) {
            Type(dialog.txtPrX, QStringLiteral("101"));
            QVERIFY(dialog.lblFuoriFoglio.Visible());
            QCOMPARE(dialog.lblFuoriFoglio.BackColor(), Color{255});
            desk.Host.Advance(499);
            QCOMPARE(dialog.lblFuoriFoglio.BackColor(), Color{255});
            desk.Host.Advance(1);
            QCOMPARE(dialog.lblFuoriFoglio.BackColor(), SystemButtonFace);
            desk.Host.Advance(500);
            QCOMPARE(dialog.lblFuoriFoglio.BackColor(), Color{255});
            dialog.lblFuoriFoglio.SetBackColor(7);
            desk.Host.Advance(500);
            QCOMPARE(dialog.lblFuoriFoglio.BackColor(), Color{7});
            Type(dialog.txtPrX, QStringLiteral("100")); // the edge itself is on the sheet
            QVERIFY(!dialog.lblFuoriFoglio.Visible());
            QVERIFY(!dialog.Timer1.Enabled());
        });
    }

    void everySideCanBeLeft()
    {
        Desk desk;
        desk.Open([&](FrmStampa &dialog) {
            Type(dialog.txtPrY, QStringLiteral("181"));
            QVERIFY(dialog.lblFuoriFoglio.Visible());
            Type(dialog.txtPrY, QStringLiteral("180"));
            QVERIFY(!dialog.lblFuoriFoglio.Visible());
            dialog.cmdOrigine.OnClick();
            QVERIFY(!dialog.lblFuoriFoglio.Visible());
            dialog.updPrX.Down();
            QCOMPARE(Stampa.MargineX, -1);
            QVERIFY(dialog.lblFuoriFoglio.Visible());
            dialog.updPrX.Up();
            QVERIFY(!dialog.lblFuoriFoglio.Visible());
            dialog.updPrY.Down();
            QVERIFY(dialog.lblFuoriFoglio.Visible());
        });
    }

    void aSizeOfOneIsNotDrawn()
    {
        Desk desk;
        desk.Open([&](FrmStampa &dialog) {
            dialog.chkProporzioni.SetValue(false);
            const QImage before = Preview(dialog);
            Type(dialog.txtPrW, QStringLiteral("1"));
            QCOMPARE(Stampa.StampaW, 1);
            QCOMPARE(Preview(dialog), before);
            Type(dialog.txtPrW, QStringLiteral("2"));
            QVERIFY(Preview(dialog) != before);
        });
    }

    // --- Fields ---

    void onlyDigitsAreTaken()
    {
        Desk desk;
        desk.Open([&](FrmStampa &dialog) {
            for (TextBox *field : {&dialog.txtPrX, &dialog.txtPrY, &dialog.txtPrW, &dialog.txtPrH,
                                   &dialog.txtNCopies}) {
                Type(*field, QStringLiteral("5-.a7 "));
                QCOMPARE(field->Text(), QStringLiteral("57"));
            }
            Type(dialog.txtPrX, QStringLiteral("-8"));
            QCOMPARE(Stampa.MargineX, 8);
            QCOMPARE(Stampa.NumeroCopie, 57);
        });
    }

    void aRefusedKeyLeavesTheNumberAndItsSelection()
    {
        Desk desk;
        desk.Open([&](FrmStampa &dialog) {
            for (TextBox *field : {&dialog.txtPrX, &dialog.txtPrY, &dialog.txtPrW, &dialog.txtPrH,
                                   &dialog.txtNCopies}) {
                field->SetText(QStringLiteral("100"));
                auto *line = static_cast<QLineEdit *>(field->Widget());
                int changes = 0;
                const auto change = field->OnChange;
                field->OnChange = [&] { ++changes; };
                line->setFocus();
                DoEvents();
                line->selectAll();
                for (const Qt::Key key : {Qt::Key_X, Qt::Key_Minus, Qt::Key_Space}) {
                    QTest::keyClick(line, key);
                    QCOMPARE(field->Text(), QStringLiteral("100"));
                    QCOMPARE(line->selectedText(), QStringLiteral("100"));
                    QCOMPARE(changes, 0);
                }
                // Part of it, selected from its end to its start.
                line->setSelection(3, -2);
                QTest::keyClick(line, Qt::Key_X);
                QCOMPARE(field->Text(), QStringLiteral("100"));
                QCOMPARE(line->selectedText(), QStringLiteral("00"));
                QCOMPARE(line->cursorPosition(), 1);
                field->OnChange = change;
                QTest::keyClick(line, Qt::Key_2);
                QCOMPARE(field->Text(), QStringLiteral("12"));
                // Within the number, with nothing selected.
                line->setCursorPosition(1);
                QTest::keyClick(line, Qt::Key_X);
                QCOMPARE(line->cursorPosition(), 1);
                QTest::keyClick(line, Qt::Key_5);
                QCOMPARE(field->Text(), QStringLiteral("152"));
                QTest::keyClick(line, Qt::Key_Backspace);
                QCOMPARE(field->Text(), QStringLiteral("12"));
            }
            QCOMPARE(Stampa.NumeroCopie, 12);
        });
    }

    void whatAnAidWritesIsSiftedLikeKeys()
    {
        Desk desk;
        desk.Open([&](FrmStampa &dialog) {
            dialog.chkProporzioni.SetValue(false);
            for (TextBox *field : {&dialog.txtPrX, &dialog.txtPrY, &dialog.txtPrW, &dialog.txtPrH,
                                   &dialog.txtNCopies}) {
                field->SetText(QStringLiteral("100"));
                QAccessibleInterface *aid = QAccessible::queryAccessibleInterface(field->Widget());
                QVERIFY(aid->editableTextInterface() != nullptr);
                aid->editableTextInterface()->replaceText(0, 3, QStringLiteral("-4a2"));
                QCOMPARE(field->Text(), QStringLiteral("42"));
                aid->setText(QAccessible::Value, QStringLiteral("quaranta"));
                QCOMPARE(field->Text(), QStringLiteral("42"));
                aid->editableTextInterface()->insertText(1, QStringLiteral("x3"));
                QCOMPARE(field->Text(), QStringLiteral("432"));
                aid->editableTextInterface()->deleteText(0, 1);
                QCOMPARE(field->Text(), QStringLiteral("32"));
                aid->setText(QAccessible::Value, {});
                QVERIFY(field->Text().size() <= 1); // a size takes its nearest end
                aid->setText(QAccessible::Value, QStringLiteral("17"));
                QCOMPARE(field->Text(), QStringLiteral("17"));
            }
            QCOMPARE(Stampa.MargineX, 17);
            QCOMPARE(Stampa.StampaH, 17);
            QCOMPARE(Stampa.NumeroCopie, 17);
            // What keys cannot reach an aid cannot reach either.
            dialog.chkCentro.SetValue(true);
            const QString centred = dialog.txtPrX.Text();
            QAccessible::queryAccessibleInterface(dialog.txtPrX.Widget())
                ->setText(QAccessible::Value, QStringLiteral("5"));
            QCOMPARE(dialog.txtPrX.Text(), centred);
            // The minus that only the arrows write stays when an aid writes behind it.
            dialog.chkCentro.SetValue(false);
            dialog.txtPrX.SetText(QStringLiteral("-1"));
            QAccessible::queryAccessibleInterface(dialog.txtPrX.Widget())
                ->editableTextInterface()
                ->insertText(2, QStringLiteral("2-"));
            QCOMPARE(dialog.txtPrX.Text(), QStringLiteral("-12"));
        });
    }

    void pastedNumbersReplaceWhatIsSelectedWithTheirDigits()
    {
        Desk desk;
        desk.Open([&](FrmStampa &dialog) {
            auto *line = static_cast<QLineEdit *>(dialog.txtPrX.Widget());
            const auto paste = [&](const char *text) {
                QGuiApplication::clipboard()->setText(QString::fromLatin1(text));
                line->selectAll();
                QTest::keyClick(line, Qt::Key_V, Qt::ControlModifier);
                return dialog.txtPrX.Text();
            };
            QCOMPARE(paste("1x2"), QStringLiteral("12"));
            QCOMPARE(paste("1x"), QStringLiteral("1"));
            QCOMPARE(paste("abc"), QStringLiteral("1"));
            QCOMPARE(line->selectedText(), QStringLiteral("1"));
            QCOMPARE(paste("-30 mm"), QStringLiteral("30"));
        });
    }

    void fieldsTakeTheNearestEnd()
    {
        Desk desk;
        desk.Open([&](FrmStampa &dialog) {
            dialog.chkProporzioni.SetValue(false);
            Type(dialog.txtPrW, QStringLiteral("2001"));
            QCOMPARE(dialog.txtPrW.Text(), QStringLiteral("2000"));
            QCOMPARE(Stampa.StampaW, 2000);
            Type(dialog.txtPrH, QStringLiteral("0"));
            QCOMPARE(dialog.txtPrH.Text(), QStringLiteral("1"));
            QCOMPARE(Stampa.StampaH, 1);
            dialog.txtPrW.SetText({});
            QCOMPARE(dialog.txtPrW.Text(), QStringLiteral("1"));
            dialog.txtPrX.SetText(QStringLiteral("-2001"));
            QCOMPARE(dialog.txtPrX.Text(), QStringLiteral("-2000"));
            QCOMPARE(Stampa.MargineX, -2000);
            dialog.txtPrY.SetText(QStringLiteral("99999999999"));
            QCOMPARE(dialog.txtPrY.Text(), QStringLiteral("2000"));
            dialog.txtPrX.SetText(QStringLiteral("12xyz"));
            QCOMPARE(Stampa.MargineX, 12);
            dialog.txtNCopies.SetText(QStringLiteral("99999999999"));
            QCOMPARE(desk.Host.FatalNumber, 0);
        });
    }

    void arrowsStopAtTheirEnds()
    {
        Desk desk;
        desk.Open([&](FrmStampa &dialog) {
            dialog.updNCopies.Down();
            QCOMPARE(dialog.txtNCopies.Text(), QStringLiteral("1"));
            dialog.updNCopies.Up();
            QCOMPARE(Stampa.NumeroCopie, 2);
            dialog.txtNCopies.SetText(QStringLiteral("100"));
            dialog.updNCopies.Up();
            QCOMPARE(dialog.txtNCopies.Text(), QStringLiteral("100"));
            dialog.txtPrW.SetText(QStringLiteral("2"));
            dialog.updPrW.Down();
            QCOMPARE(Stampa.StampaW, 2);
        });
    }

    void everyArrowStopsAtTheEndsOfItsField()
    {
        Desk desk;
        desk.Open([&](FrmStampa &dialog) {
            dialog.chkProporzioni.SetValue(false);
            struct Row {
                TextBox &Field;
                UpDown &Arrows;
                int Min;
                int Max;
            };
            for (const Row &row :
                 std::initializer_list<Row>{{dialog.txtPrX, dialog.updPrX, -2000, 2000},
                                            {dialog.txtPrY, dialog.updPrY, -2000, 2000},
                                            {dialog.txtPrW, dialog.updPrW, 2, 2000},
                                            {dialog.txtPrH, dialog.updPrH, 2, 2000},
                                            {dialog.txtNCopies, dialog.updNCopies, 1, 100}}) {
                const QList<QToolButton *> buttons =
                    row.Arrows.Widget()->findChildren<QToolButton *>();
                QCOMPARE(buttons.size(), qsizetype{2});
                for (QToolButton *button : buttons) {
                    const bool up = button->arrowType() == Qt::UpArrow;
                    const int end = up ? row.Max : row.Min;
                    const int step = up ? 1 : -1;
                    row.Field.SetText(QString::number(end - 2 * step));
                    QStringList seen;
                    for (int press = 0; press < 3; ++press) {
                        QTest::mouseClick(button, Qt::LeftButton);
                        seen << row.Field.Text();
                    }
                    QCOMPARE(seen, QStringList({QString::number(end - step), QString::number(end),
                                                QString::number(end)}));
                }
            }
            // A field that stands outside of them comes in at the nearest end.
            dialog.txtNCopies.SetText(QStringLiteral("500"));
            dialog.updNCopies.Down();
            QCOMPARE(Stampa.NumeroCopie, 100);
            dialog.txtNCopies.SetText({});
            dialog.updNCopies.Down();
            QCOMPARE(Stampa.NumeroCopie, 1);
        });
    }

    void proportionsAreKeptWhileTheBoxIsTicked()
    {
        Desk desk;
        RichiestaStampa request = desk.Request();
        request.W = 90;
        request.H = 60;
        desk.Open(request, [&](FrmStampa &dialog) {
            Type(dialog.txtPrW, QStringLiteral("45"));
            QCOMPARE(dialog.txtPrH.Text(), QStringLiteral("30"));
            Type(dialog.txtPrH, QStringLiteral("3")); // 4.5, to the even neighbour
            QCOMPARE(dialog.txtPrW.Text(), QStringLiteral("4"));
            dialog.txtPrW.SetText(QStringLiteral("90")); // code alone does not reckon
            QCOMPARE(dialog.txtPrH.Text(), QStringLiteral("3"));
            dialog.updPrW.Up();
            QCOMPARE(dialog.txtPrH.Text(), QStringLiteral("61"));
            dialog.chkProporzioni.SetValue(false);
            QCOMPARE(dialog.lblLblScala.Caption(), QStringLiteral("Scala X:"));
            QVERIFY(!dialog.txtScala.Enabled());
            Type(dialog.txtPrW, QStringLiteral("30"));
            QCOMPARE(dialog.txtPrH.Text(), QStringLiteral("61"));
            dialog.chkProporzioni.SetValue(true);
            QCOMPARE(dialog.txtPrH.Text(), QStringLiteral("20"));
            QCOMPARE(dialog.lblLblScala.Caption(), QStringLiteral("Scala:"));
            QVERIFY(dialog.txtScala.Enabled());
        });
    }

    void centringReckonsTheMarginsAndLocksThem()
    {
        Desk desk;
        desk.Open([&](FrmStampa &dialog) {
            Type(dialog.txtPrW, QStringLiteral("101"));
            dialog.chkCentro.SetValue(true);
            QCOMPARE(Stampa.MargineX, 50); // 49.5, to the even neighbour
            QCOMPARE(Stampa.MargineY, 90); // 89.5
            for (const VisualControl *control : std::initializer_list<const VisualControl *>{
                     &dialog.txtPrX, &dialog.txtPrY, &dialog.updPrX, &dialog.updPrY,
                     &dialog.cmdOrigine})
                QVERIFY(!control->Enabled());
            Type(dialog.txtPrW, QStringLiteral("220"));
            QCOMPARE(Stampa.MargineX, -10);
            QVERIFY(dialog.lblFuoriFoglio.Visible());
            dialog.chkCentro.SetValue(false);
            QVERIFY(dialog.txtPrX.Enabled());
            QVERIFY(dialog.cmdOrigine.Enabled());
        });
    }

    void theLargestSizeKeepsProportionsAndClearsOneMargin()
    {
        Desk desk;
        desk.Open([&](FrmStampa &dialog) {
            dialog.txtPrY.SetText(QStringLiteral("90"));
            dialog.cmdMax.OnClick(); // the sheet is narrower than the square
            QCOMPARE(Stampa.StampaW, 200);
            QCOMPARE(Stampa.StampaH, 200);
            QCOMPARE(Stampa.MargineX, 0);
            QCOMPARE(Stampa.MargineY, 80); // pulled back onto the sheet
        });
        RichiestaStampa request = desk.Request();
        request.W = 50;
        request.H = 100;
        request.X = 70;
        desk.Open(request, [&](FrmStampa &dialog) {
            dialog.cmdMax.OnClick(); // the sheet is wider
            QCOMPARE(Stampa.StampaH, 280);
            QCOMPARE(Stampa.StampaW, 140);
            QCOMPARE(Stampa.MargineY, 0);
            QCOMPARE(Stampa.MargineX, 60);
        });
        desk.Open([&](FrmStampa &dialog) {
            dialog.chkProporzioni.SetValue(false);
            dialog.cmdMax.OnClick();
            QCOMPARE(Stampa.StampaW, 200);
            QCOMPARE(Stampa.StampaH, 280);
            QCOMPARE(Stampa.MargineX, 0);
            QCOMPARE(Stampa.MargineY, 0);
        });
    }

    // --- The hidden scale ---

    void theScaleFollowsTheWidthAndSetsIt()
    {
        Desk desk;
        RichiestaStampa request = desk.Request();
        request.Scala = 10; // the source is 1000 wide
        desk.Open(request, [&](FrmStampa &dialog) {
            QCOMPARE(dialog.txtScala.Text(), QStringLiteral("10."));
            dialog.txtPrW.SetText(QStringLiteral("3"));
            QCOMPARE(dialog.txtScala.Text(), QStringLiteral("333.33"));
            dialog.txtScala.SetText(QStringLiteral("20"));
            dialog.cmdScalaOK.OnClick();
            QCOMPARE(Stampa.StampaW, 50);
            QCOMPARE(Stampa.StampaH, 50);
            for (const char *ignored : {"", "0", "-4", "n", "1n"}) {
                dialog.txtScala.SetText(QString::fromLatin1(ignored));
                dialog.cmdScalaOK.OnClick();
                QCOMPARE(Stampa.StampaW, 50);
                QCOMPARE(Stampa.StampaH, 50);
            }
            dialog.txtScala.SetText(QStringLiteral("0.1"));
            dialog.txtScala.OnLostFocus();
            QCOMPARE(Stampa.StampaW, 2000);
            QCOMPARE(Stampa.StampaH, 2000);
        });
        request.W = 50; // 500 wide, twice as high as wide
        desk.Open(request, [&](FrmStampa &dialog) {
            dialog.txtScala.SetText(QStringLiteral("0.4"));
            dialog.cmdScalaOK.OnClick(); // 1250 wide would be 2500 high
            QCOMPARE(Stampa.StampaW, 1000);
            QCOMPARE(Stampa.StampaH, 2000);
        });
    }

    void theScaleTakesItsKeysAndEnter()
    {
        Desk desk;
        RichiestaStampa request = desk.Request();
        request.Scala = 10; // the source is 1000 wide
        desk.Open(request, [&](FrmStampa &dialog) {
            Type(dialog.txtScala, QStringLiteral("2a-,5 .0n"));
            QCOMPARE(dialog.txtScala.Text(), QStringLiteral("25.0n"));
            QCOMPARE(Stampa.StampaW, 100); // not yet
            auto *line = static_cast<QLineEdit *>(dialog.txtScala.Widget());
            QTest::keyClick(line, Qt::Key_Backspace);
            QTest::keyClick(line, Qt::Key_Return);
            QCOMPARE(Stampa.StampaW, 40);
            QCOMPARE(Stampa.StampaH, 40);
        });
    }

    void aScaleThatIsNoNumberIsPassedOverAndAnyOtherErrorIsTold()
    {
        Desk desk;
        desk.Open([&](FrmStampa &dialog) {
            dialog.txtScala.SetText(QStringLiteral("1..2"));
            dialog.cmdScalaOK.OnClick();
            dialog.txtScala.SetText(QStringLiteral("1e99"));
            desk.ExpectError(RunTimeError(Overflow, QStringLiteral("1e99")).Text(), "txtScala");
            dialog.cmdScalaOK.OnClick();
            QCOMPARE(Stampa.StampaW, 100);
            QVERIFY(!dialog.Unloaded());
        });
    }

    void pendingEventsPassWhenAScaleIsTaken()
    {
        Desk desk;
        desk.Open([&](FrmStampa &dialog) {
            dialog.txtScala.SetText(QStringLiteral("20"));
            bool passed = false;
            QTimer::singleShot(0, dialog.Window(), [&] { passed = true; });
            dialog.cmdScalaOK.OnClick();
            QVERIFY(passed);
        });
    }

    void aHeightOfOneIsNotDrawnEither()
    {
        Desk desk;
        desk.Open([&](FrmStampa &dialog) {
            dialog.chkProporzioni.SetValue(false);
            const QImage before = Preview(dialog);
            Type(dialog.txtPrH, QStringLiteral("1"));
            QCOMPARE(Stampa.StampaH, 1);
            QCOMPARE(Preview(dialog), before);
            Type(dialog.txtPrH, QStringLiteral("30"));
            QVERIFY(Preview(dialog) != before);
        });
    }

    // --- Buttons ---

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
            QVERIFY(dialog.lblStampaInCorso.Visible());
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

MORLENE_TEST(TestFrmStampa)
#include "test_frm_stampa.moc"
