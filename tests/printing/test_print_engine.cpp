// The print engine against a device that fails at each step in turn: every box with its title, and
// what is left behind.
#include "language/language.h"
#include "platform/controls/picture.h"
#include "printing/print_engine.h"
#include "printing/print_fields.h"
#include "printing/print_pages.h"
#include "support/registered_tests.h"
#include "support/scripted_host.h"

#include <QDir>
#include <QTest>

#include <memory>

using namespace platform;

namespace {

const QString Form_ = QStringLiteral("Print_Form");
const QString Figure_ = QStringLiteral("Print_PictureBox");

// A window with a picture, a printer with a sheet of 200 by 280 mm at 20 pixels a millimetre.
class Shop {
public:
    Shop()
    {
        AzzeraStampa();
        LinguaCorrente.clear();
        Window = std::make_unique<Form>("Finestra", 3000, 1500);
        Picture =
            std::make_unique<PictureBox>(ControlId{*Window, "Picture1", 0}, Place{0, 0, 900, 600});
        Stampa.NomeStampante = QStringLiteral("Prima");
        Stampa.NumeroCopie = 1;
    }
    ~Shop()
    {
        AzzeraStampa();
        // The picture goes before the window that it stands on.
        Picture.reset();
        Window.reset();
    }
    Shop(const Shop &) = delete;
    Shop &operator=(const Shop &) = delete;

    FakePrinting &Printer() { return Host.Printer; }

    void ExpectError(const QString &routine, const QString &text)
    {
        Host.ExpectBox(Box{.Text = text,
                           .Title = QStringLiteral(" Errore in frmStampaFPB/") + routine,
                           .Icon = BoxIcon::Critical});
    }
    void ExpectQuestion(BoxAnswer answer)
    {
        Host.ExpectBox(Box{.Text = MLSTesto(QStringLiteral("0093")) + QStringLiteral("\n") +
                                   MLSTesto(QStringLiteral("0094")) + QStringLiteral("\n") +
                                   MLSTesto(QStringLiteral("0095")) + QStringLiteral("\n\n") +
                                   MLSTesto(QStringLiteral("0096")),
                           .Title = MLSTesto(QStringLiteral("0097")),
                           .Icon = BoxIcon::Question,
                           .Buttons = BoxButtons::YesNoCancel},
                       answer);
    }

    bool PrintWindow(int x, int y, int w, int h, const QString &title = {})
    {
        return StampaOggetto(Window.get(), x, y, w, h, title);
    }
    bool PrintPicture(int x, int y, int w, int h)
    {
        return StampaOggetto(static_cast<Control *>(Picture.get()), x, y, w, h, {});
    }

    // The one rectangle that was printed last.
    DeviceRectangle Printed()
    {
        if (Printer().Documents.isEmpty() || Printer().Documents.last().Pages.size() != 1 ||
            Printer().Documents.last().Pages.first().Rectangles.size() != 1)
            return {-1, -1, -1, -1};
        return Printer().Documents.last().Pages.first().Rectangles.first();
    }

    ScriptedHost Host;
    std::unique_ptr<Form> Window;
    std::unique_ptr<PictureBox> Picture;
};

QList<int> Numbers(const DeviceRectangle &r)
{
    return {r.X, r.Y, r.Width, r.Height};
}

QString FormLines(int r1, int r2, int r3, int r4)
{
    return QStringLiteral("Il Form non viene stampato.\nR1 = %1\nR2 = %2\nR3 = %3\nR4 = %4")
        .arg(r1)
        .arg(r2)
        .arg(r3)
        .arg(r4);
}

QString FigureLines(int r1, int r2, int r3, int r4, int r5)
{
    return QStringLiteral("Il PictureBox non viene stampato.\nR1 = %1\nR2 = %2\nR3 = %3\n"
                          "R4 = %4\nR5 = %5")
        .arg(r1)
        .arg(r2)
        .arg(r3)
        .arg(r4)
        .arg(r5);
}

const QString Raised = QStringLiteral("La funzione di Stampa\nha trovato una situazione "
                                      "imprevista.\n\nCodice di errore = 482\nErrore della "
                                      "stampante");

} // namespace

class TestPrintEngine : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // --- Sizes of bitmaps ---

    void rowsAreFilledToFourBytesAndStrangeDepthsAreNothing_data()
    {
        QTest::addColumn<int>("bits");
        QTest::addColumn<int>("width");
        QTest::addColumn<int>("height");
        QTest::addColumn<qlonglong>("bytes");
        QTest::newRow("1 bit") << 1 << 33 << 2 << 16LL;
        QTest::newRow("1 bit, whole") << 1 << 32 << 2 << 8LL;
        QTest::newRow("4 bits") << 4 << 9 << 3 << 24LL;
        QTest::newRow("8 bits") << 8 << 5 << 3 << 24LL;
        QTest::newRow("16 bits") << 16 << 3 << 3 << 24LL;
        QTest::newRow("24 bits") << 24 << 41 << 30 << 3720LL;
        QTest::newRow("24 bits, whole") << 24 << 4 << 1 << 12LL;
        QTest::newRow("32 bits") << 32 << 41 << 30 << 0LL;
        QTest::newRow("0 bits") << 0 << 41 << 30 << 0LL;
    }
    void rowsAreFilledToFourBytesAndStrangeDepthsAreNothing()
    {
        QFETCH(int, bits);
        QFETCH(int, width);
        QFETCH(int, height);
        QFETCH(qlonglong, bytes);
        QCOMPARE(qlonglong{BytesOfBitmap(bits, width, height)}, bytes);
    }

    // --- The printer ---

    void anEmptyNameBecomesTheDefaultPrinter()
    {
        Shop shop;
        QString name;
        QVERIFY(OpenDocPrinter(name));
        QCOMPARE(name, QStringLiteral("Prima"));
        QVERIFY(Stampa.hStampante != 0);
    }

    void withoutADefaultPrinterThereIsOneBoxAndNoSecond()
    {
        Shop shop;
        shop.Printer().Default.clear();
        shop.ExpectError(QStringLiteral("GetDefPrinterName"),
                         QStringLiteral("Stampante di default non specificata."));
        QString name;
        QVERIFY(!OpenDocPrinter(name));
        QVERIFY(name.isEmpty());
        QCOMPARE(Stampa.hStampante, uint64_t{0});
    }

    void aPrinterThatCannotBeOpenedIsTold()
    {
        Shop shop;
        shop.ExpectError(QStringLiteral("OpenDocPrinter"),
                         MLSTesto(QStringLiteral("0098")) + QStringLiteral("\n"));
        QString name = QStringLiteral("Terza");
        QVERIFY(!OpenDocPrinter(name));
        QCOMPARE(Stampa.hStampante, uint64_t{0});
    }

    void theFormerPrinterIsClosedFirst()
    {
        Shop shop;
        QString first = QStringLiteral("Prima");
        QString second = QStringLiteral("Seconda");
        QVERIFY(OpenDocPrinter(first));
        QVERIFY(OpenDocPrinter(second));
        QCOMPARE(shop.Printer().OpenPrinters, 1);
        QCOMPARE(Stampa.DevMode.DeviceName, second);
    }

    void theDriverGetsTheFixedFieldsAndItsAnswerCounts()
    {
        Shop shop;
        Stampa.DevMode.Orientation = 2;
        QString name;
        QVERIFY(OpenDocPrinter(name));
        QCOMPARE(shop.Printer().Judged.last().Fields, 134229259U);
        QCOMPARE(shop.Printer().Judged.last().Orientation, int16_t{2});
        QCOMPARE(Stampa.DevMode.Orientation, int16_t{2});
        QCOMPARE(Stampa.DevMode.Copies, int16_t{1});
        QCOMPARE(Stampa.DevMode.Fields, 0x1U); // the driver's report
        QVERIFY(ImpostaDevMode(name));
        QCOMPARE(shop.Printer().Judged.last().Fields, 134229259U);
    }

    void pushingARecordNeedsAnOpenPrinterAndAWillingDriver()
    {
        Shop shop;
        QVERIFY(!ImpostaDevMode(QStringLiteral("Prima")));
        QString name;
        QVERIFY(OpenDocPrinter(name));
        shop.Printer().Answers[QStringLiteral("JudgeMode")] = {-1};
        QVERIFY(!ImpostaDevMode(name));
    }

    void theDriversDialogChangesTheRecordOnlyWhenConfirmed()
    {
        Shop shop;
        ProprietaStampante(*shop.Window, QStringLiteral("Prima"));
        QVERIFY(shop.Printer().Calls.isEmpty()); // nothing without an open printer
        QString name;
        QVERIFY(OpenDocPrinter(name));
        int answer = 2;
        shop.Printer().Dialog = [&](DeviceMode &mode) {
            mode.Copies = 5;
            return answer;
        };
        ProprietaStampante(*shop.Window, name);
        QCOMPARE(Stampa.DevMode.Copies, int16_t{1});
        answer = 1;
        ProprietaStampante(*shop.Window, name);
        QCOMPARE(Stampa.DevMode.Copies, int16_t{5});
        QCOMPARE(shop.Printer().Judged.last().Fields, 134229259U);
    }

    // --- The sheet ---

    void theSheetIsThePrintableSizeInWholeMillimetres()
    {
        Shop shop;
        QString name;
        QVERIFY(OpenDocPrinter(name));
        int32_t w = 0;
        int32_t h = 0;
        int32_t orientation = 0;
        QVERIFY(LeggiFoglio(name, w, h, orientation));
        QCOMPARE(w, 200);
        QCOMPARE(h, 280);
        QCOMPARE(orientation, 1);
        QVERIFY(!LeggiFoglio({}, w, h, orientation));
        QCOMPARE(w, -1);
        QCOMPARE(h, -1);
        QCOMPARE(orientation, -1);
        QVERIFY(!LeggiFoglio(QStringLiteral("Terza"), w, h, orientation));
        QCOMPARE(w, 0);
        QCOMPARE(h, 0);
        QCOMPARE(shop.Printer().Devices, 0);
    }

    void theSheetOfThePrinterForAnOrientation()
    {
        Shop shop;
        int32_t w = 0;
        int32_t h = 0;
        FoglioStampa(w, h, 2.0);
        QCOMPARE(w, 280);
        QCOMPARE(h, 200);
        FoglioStampa(w, h, 1.0);
        QCOMPARE(w, 200);
        QCOMPARE(h, 280);
        Stampa.DevMode.Orientation = 2;
        FoglioStampa(w, h);
        QCOMPARE(w, 280);
    }

    void aWrongOrientationIsToldAndGivesNoSize()
    {
        Shop shop;
        int32_t w = 0;
        int32_t h = 0;
        for (const double wrong : {0.0, 3.0, 1.5, -1.0}) {
            shop.ExpectError(QStringLiteral("FoglioStampa"), QStringLiteral("Orientamento errato"));
            FoglioStampa(w, h, wrong);
            QCOMPARE(w, -1);
            QCOMPARE(h, -1);
        }
    }

    void noSheetWithoutAPrinter()
    {
        Shop shop;
        shop.Printer().Names.clear();
        shop.ExpectError(QStringLiteral("OpenDocPrinter"),
                         MLSTesto(QStringLiteral("0098")) + QStringLiteral("\n"));
        int32_t w = 0;
        int32_t h = 0;
        FoglioStampa(w, h, 1.0);
        QCOMPARE(w, -1);
        QCOMPARE(h, -1);
    }

    // --- Grabbing a window ---

    void aGrabbedWindowKeepsSizeAndBits()
    {
        Shop shop;
        QVERIFY(Legge_Form(*shop.Window));
        QCOMPARE(Stampa.LarghezzaImmagine, 41);
        QCOMPARE(Stampa.AltezzaImmagine, 30);
        QCOMPARE(Stampa.InfoImmagine.Planes, 1);
        QCOMPARE(Stampa.InfoImmagine.BitsPerPixel, 24);
        QCOMPARE(Stampa.MemoriaImmagine->size(), qsizetype{3720});
        QCOMPARE(shop.Printer().Allocated(), 1);
    }

    void theGrabIsTheWholeWindowWithItsMenuBar()
    {
        Shop shop;
        shop.Printer().RealPixels = true;
        shop.Window->SetBackColor(Rgb(0xFF, 0x80, 0x10));
        QVERIFY(Legge_Form(*shop.Window));
        QCOMPARE(Stampa.LarghezzaImmagine, 200);
        QCOMPARE(Stampa.AltezzaImmagine, 100);
        // The last pixel of the first row, past the picture: blue, green, red.
        QCOMPARE(Stampa.MemoriaImmagine->mid(199 * 3, 3), QByteArray("\x10\x80\xFF", 3));
    }

    void aScreenWithoutBitmapsIsTold()
    {
        Shop shop;
        shop.Printer().GivesBits = false;
        shop.Host.ExpectBox(Box{.Text = QStringLiteral("This device does not support DIB's"),
                                .Title = QStringLiteral(" No DIB support"),
                                .Icon = BoxIcon::Critical});
        QVERIFY(!Legge_Form(*shop.Window));
        QCOMPARE(shop.Printer().Allocated(), 0);
    }

    void thirtyTwoBitsAreAnUnknownFormat()
    {
        Shop shop;
        shop.Printer().BitsPerPixel = 32;
        shop.ExpectError(QStringLiteral("Legge_Form"),
                         QStringLiteral("Formato grafico sconosciuto.\n\n") +
                             MLSTesto(QStringLiteral("0099")));
        QVERIFY(!Legge_Form(*shop.Window));
        QCOMPARE(shop.Printer().Allocated(), 0);
    }

    void theDepthOfAWindowIsPlanesTimesBits()
    {
        Shop shop;
        shop.Printer().Planes = 3;
        shop.Printer().BitsPerPixel = 8;
        QVERIFY(Legge_Form(*shop.Window));
        QCOMPARE(Stampa.InfoImmagine.Planes, 1);
        QCOMPARE(Stampa.InfoImmagine.BitsPerPixel, 24);
    }

    void whatIsMissingForAGrabIsListed_data()
    {
        QTest::addColumn<int>("context");
        QTest::addColumn<int>("copy");
        QTest::addColumn<int>("memory");
        QTest::newRow("context") << 0 << 8 << 1;
        QTest::newRow("copy") << 7 << 0 << 1;
        QTest::newRow("memory") << 7 << 8 << 0;
    }
    void whatIsMissingForAGrabIsListed()
    {
        QFETCH(int, context);
        QFETCH(int, copy);
        QFETCH(int, memory);
        Shop shop;
        shop.Printer().Context = static_cast<uint64_t>(context);
        shop.Printer().Copy = static_cast<uint64_t>(copy);
        shop.Printer().Answers[QStringLiteral("Allocate")] = {memory};
        shop.ExpectError(QStringLiteral("Legge_Form"),
                         QStringLiteral("hDC_FSrc = %1\nhBmp_Form = %2\nhMem = %3")
                             .arg(context)
                             .arg(copy)
                             .arg(memory));
        QVERIFY(!Legge_Form(*shop.Window));
    }

    void aWindowThatGivesNoRowsIsTold()
    {
        Shop shop;
        shop.Printer().Answers[QStringLiteral("ReadRows")] = {0};
        shop.ExpectError(QStringLiteral("Legge_Form"),
                         QStringLiteral("Unable to read the Form.\nR2 = 0"));
        QVERIFY(!Legge_Form(*shop.Window));
    }

    // --- From millimetres to pixels ---

    void theRectangleIsScaledByThePixelsOfAMillimetre()
    {
        Shop shop;
        QVERIFY(Legge_Form(*shop.Window));
        QVERIFY(shop.PrintWindow(10, 20, 100, 50, QStringLiteral("Età")));
        QCOMPARE(Numbers(shop.Printed()), (QList<int>{200, 400, 2000, 1000}));
        const FakeDocument &document = shop.Printer().Documents.first();
        QCOMPARE(document.Title, QStringLiteral("Età"));
        QCOMPARE(document.Printer, QStringLiteral("Prima"));
        QVERIFY(document.Ended);
        QCOMPARE(document.Pages.first().Bitmaps.first().Width, 41);
        QCOMPARE(document.Mode.Fields, 134229259U);
        QCOMPARE(shop.Printer().Devices, 0);
        QCOMPARE(shop.Printer().Allocated(), 0);
        QVERIFY(!Stampa.MemoriaImmagine);
    }

    // 4960 pixels on 210 mm: 23.619047 a millimetre, in single precision; halves go to the even
    // neighbour.
    void pixelsOfAMillimetreAreSinglePrecisionAndRoundedToEven()
    {
        Shop shop;
        shop.Printer().Sheets[QStringLiteral("Prima")] = {210, 297, 4960, 7425};
        QVERIFY(Legge_Form(*shop.Window));
        QVERIFY(shop.PrintWindow(10, 1, 100, 3));
        QCOMPARE(Numbers(shop.Printed()), (QList<int>{236, 25, 2362, 75}));
        shop.Printer().Sheets[QStringLiteral("Prima")] = {200, 200, 500, 500};
        QVERIFY(Legge_Form(*shop.Window));
        QVERIFY(shop.PrintWindow(1, 3, 5, 7)); // 2.5, 7.5, 12.5, 17.5
        QCOMPARE(Numbers(shop.Printed()), (QList<int>{2, 8, 12, 18}));
        // A sixth is a little more in single precision, so three of them are more than a half.
        shop.Printer().Sheets[QStringLiteral("Prima")] = {6000, 6000, 1000, 1000};
        QVERIFY(Legge_Form(*shop.Window));
        QVERIFY(shop.PrintWindow(3, 0, 15, 1000));
        QCOMPARE(Numbers(shop.Printed()), (QList<int>{1, 0, 3, 167}));
    }

    void theDeviceIsTheFormersNameEvenWhenAnotherIsChosen()
    {
        Shop shop;
        QString other = QStringLiteral("Seconda");
        QVERIFY(OpenDocPrinter(other));
        Stampa.StampanteScelta = other;
        QVERIFY(Legge_Form(*shop.Window));
        QVERIFY(shop.PrintWindow(10, 10, 100, 100));
        QCOMPARE(shop.Printer().Documents.first().Printer, QStringLiteral("Prima"));
    }

    // --- The question ---

    void cancelPrintsNothingAndSaysNo()
    {
        Shop shop;
        QVERIFY(Legge_Form(*shop.Window));
        shop.ExpectQuestion(BoxAnswer::Cancel);
        QVERIFY(!shop.PrintWindow(10, 10, 200, 100));
        QVERIFY(shop.Printer().Documents.isEmpty());
        QCOMPARE(shop.Printer().Devices, 0);
        QVERIFY(Stampa.MemoriaImmagine != nullptr);
    }

    void noPrintsItAsItIs()
    {
        Shop shop;
        QVERIFY(Legge_Form(*shop.Window));
        shop.ExpectQuestion(BoxAnswer::No);
        QVERIFY(shop.PrintWindow(-10, 10, 300, 300));
        QCOMPARE(Numbers(shop.Printed()), (QList<int>{-200, 200, 6000, 6000}));
    }

    void theSheetsEdgeIsStillInside()
    {
        Shop shop;
        QVERIFY(Legge_Form(*shop.Window));
        QVERIFY(shop.PrintWindow(100, 180, 100, 100));
        QVERIFY(shop.Printer().Documents.first().Ended);
    }

    // 390 on 200: k = 0.51282; 10 -> 5, 20 -> 10, 380 -> 195, 100 -> 51.
    void yesShrinksAllFourByTheWidth()
    {
        Shop shop;
        QVERIFY(Legge_Form(*shop.Window));
        shop.ExpectQuestion(BoxAnswer::Yes);
        QVERIFY(shop.PrintWindow(10, 20, 380, 100));
        QCOMPARE(Numbers(shop.Printed()), (QList<int>{100, 200, 3900, 1020}));
    }

    void yesShrinksByTheHeightAloneWhenOnlyThatIsTooLarge()
    {
        Shop shop;
        QVERIFY(Legge_Form(*shop.Window));
        shop.ExpectQuestion(BoxAnswer::Yes);
        QVERIFY(shop.PrintWindow(20, 0, 100, 560)); // k = 0.5
        QCOMPARE(Numbers(shop.Printed()), (QList<int>{200, 0, 1000, 5600}));
    }

    // By the width: k = 200 / 400, so 0, 0, 200, 800; the new bottom 800 is still too low:
    // k = 280 / 800.
    void yesLooksAtTheNewBottomAfterTheWidth()
    {
        Shop shop;
        QVERIFY(Legge_Form(*shop.Window));
        shop.ExpectQuestion(BoxAnswer::Yes);
        QVERIFY(shop.PrintWindow(0, 0, 400, 1600));
        QCOMPARE(Numbers(shop.Printed()), (QList<int>{0, 0, 1400, 5600}));
        // The height alone would have been too large, but fits once the width is right.
        QVERIFY(Legge_Form(*shop.Window));
        shop.ExpectQuestion(BoxAnswer::Yes);
        QVERIFY(shop.PrintWindow(0, 0, 400, 300));
        QCOMPARE(Numbers(shop.Printed()), (QList<int>{0, 0, 4000, 3000}));
    }

    // k = 5 / 10, and both halves go up to the even neighbour: 3 -> 2, 7 -> 4, one over the sheet.
    void theRightEdgeIsNotLookedAtAgain()
    {
        Shop shop;
        shop.Printer().Sheets[QStringLiteral("Prima")] = {5, 1000, 100, 20000};
        QVERIFY(Legge_Form(*shop.Window));
        shop.ExpectQuestion(BoxAnswer::Yes);
        QVERIFY(shop.PrintWindow(3, 0, 7, 6));
        QCOMPARE(Numbers(shop.Printed()), (QList<int>{40, 0, 80, 60}));
    }

    // A sixth in single precision is a little more than a sixth, so three of them are more than a
    // half.
    void shrinkingIsReckonedInSinglePrecision()
    {
        Shop shop;
        QVERIFY(Legge_Form(*shop.Window));
        shop.ExpectQuestion(BoxAnswer::Yes);
        QVERIFY(shop.PrintWindow(3, 0, 1197, 100));
        QCOMPARE(Numbers(shop.Printed()), (QList<int>{20, 0, 4000, 340}));
    }

    // --- Copies ---

    void everyCopyIsADocumentOfItsOwn()
    {
        Shop shop;
        Stampa.NumeroCopie = 3;
        QVERIFY(Legge_Form(*shop.Window));
        QVERIFY(shop.PrintWindow(0, 0, 10, 10, QStringLiteral("Tre")));
        QCOMPARE(shop.Printer().Documents.size(), qsizetype{3});
        for (const FakeDocument &document : shop.Printer().Documents) {
            QCOMPARE(document.Pages.size(), qsizetype{1});
            QCOMPARE(document.Title, QStringLiteral("Tre"));
            QVERIFY(document.Ended);
        }
        QCOMPARE(shop.Printer().Calls.count(QStringLiteral("ReadRows")), qsizetype{1});
    }

    void noCopiesPrintNothingAndSayNothing()
    {
        Shop shop;
        Stampa.NumeroCopie = 0;
        QVERIFY(Legge_Form(*shop.Window));
        QVERIFY(shop.PrintWindow(0, 0, 10, 10));
        QVERIFY(shop.PrintPicture(0, 0, 10, 10));
        QVERIFY(shop.Printer().Documents.isEmpty());
        QVERIFY(!Stampa.MemoriaImmagine);
    }

    // --- Failures of a window's print ---

    void aPrinterThatWentAwayIsToldOnceAskedAndNotDividedBy()
    {
        Shop shop;
        QVERIFY(Legge_Form(*shop.Window));
        shop.Printer().Names.clear();
        shop.ExpectQuestion(BoxAnswer::Yes);
        shop.ExpectError(Form_, QStringLiteral("prhDC = 0"));
        QVERIFY(shop.PrintWindow(10, 10, 100, 100));
        QCOMPARE(shop.Printer().Allocated(), 0);
        shop.ExpectQuestion(BoxAnswer::No);
        shop.ExpectError(Figure_, QStringLiteral("prhDC = 0\nhMem = 1"));
        QVERIFY(shop.PrintPicture(10, 10, 100, 100));
    }

    void aDocumentThatCannotStartEndsTheCopies()
    {
        Shop shop;
        Stampa.NumeroCopie = 3;
        QVERIFY(Legge_Form(*shop.Window));
        shop.Printer().Answers[QStringLiteral("StartDocument")] = {1, -1};
        shop.ExpectError(Form_, QStringLiteral("Errore di StartDoc"));
        QVERIFY(shop.PrintWindow(0, 0, 10, 10));
        QCOMPARE(shop.Printer().Documents.size(), qsizetype{1});
        QCOMPARE(shop.Printer().Allocated(), 0);
        QCOMPARE(shop.Printer().Devices, 0);
    }

    void eachFailedStepOfAWindowIsTold_data()
    {
        QTest::addColumn<QString>("step");
        QTest::addColumn<int>("answer");
        QTest::addColumn<QString>("text");
        QTest::newRow("page") << QStringLiteral("StartPage") << 0 << FormLines(0, 30, 1, 1);
        QTest::newRow("page, below 0")
            << QStringLiteral("StartPage") << -1 << FormLines(-1, 30, 1, 1);
        QTest::newRow("bitmap") << QStringLiteral("StretchBitmap") << 0 << FormLines(1, 0, 1, 1);
        QTest::newRow("end of page") << QStringLiteral("EndPage") << 0 << FormLines(1, 30, 0, 0);
        QTest::newRow("end of page, below 0")
            << QStringLiteral("EndPage") << -1 << FormLines(1, 30, -1, 0);
        QTest::newRow("end of document")
            << QStringLiteral("EndDocument") << 0 << FormLines(1, 30, 1, 0);
    }
    void eachFailedStepOfAWindowIsTold()
    {
        QFETCH(QString, step);
        QFETCH(int, answer);
        QFETCH(QString, text);
        Shop shop;
        Stampa.NumeroCopie = 3;
        QVERIFY(Legge_Form(*shop.Window));
        shop.Printer().Answers[step] = {1, answer}; // the second copy fails
        shop.ExpectError(Form_, text);
        QVERIFY(shop.PrintWindow(0, 0, 10, 10));
        QCOMPARE(shop.Printer().Documents.size(), qsizetype{2});
        QCOMPARE(shop.Printer().Allocated(), 0);
        QCOMPARE(shop.Printer().Devices, 0);
    }

    void anErrorInsideAPrintIsToldAndTheNextStepTaken_data()
    {
        QTest::addColumn<QString>("step");
        QTest::addColumn<QString>("form");
        QTest::addColumn<QString>("figure");
        QTest::newRow("page") << QStringLiteral("StartPage") << FormLines(0, 30, 1, 1)
                              << FigureLines(30, 0, 30, 1, 1);
        QTest::newRow("bitmap") << QStringLiteral("StretchBitmap") << FormLines(1, 0, 1, 1)
                                << FigureLines(30, 1, 0, 1, 1);
        QTest::newRow("end of page")
            << QStringLiteral("EndPage") << FormLines(1, 30, 0, 0) << FigureLines(30, 1, 30, 0, 0);
        QTest::newRow("end of document") << QStringLiteral("EndDocument") << FormLines(1, 30, 1, 0)
                                         << FigureLines(30, 1, 30, 1, 0);
    }
    void anErrorInsideAPrintIsToldAndTheNextStepTaken()
    {
        QFETCH(QString, step);
        QFETCH(QString, form);
        QFETCH(QString, figure);
        Shop shop;
        QVERIFY(Legge_Form(*shop.Window));
        shop.Printer().Answers[step] = {RaisesPrinterError};
        shop.ExpectError(Form_, Raised);
        shop.ExpectError(Form_, form);
        QVERIFY(shop.PrintWindow(0, 0, 10, 10));
        shop.Printer().Answers[step] = {RaisesPrinterError};
        shop.ExpectError(Figure_, Raised);
        shop.ExpectError(Figure_, figure);
        QVERIFY(shop.PrintPicture(0, 0, 10, 10));
    }

    // --- A picture's print, where it differs ---

    void aPictureIsReadAtPrintTimeOnceForAllCopies()
    {
        Shop shop;
        Stampa.NumeroCopie = 2;
        shop.Printer().Planes = 3;
        shop.Printer().BitsPerPixel = 8;
        QVERIFY(shop.PrintPicture(1, 2, 3, 4));
        QCOMPARE(shop.Printer().Documents.size(), qsizetype{2});
        QCOMPARE(shop.Printer().Calls.count(QStringLiteral("ReadRows")), qsizetype{1});
        QCOMPARE(Numbers(shop.Printed()), (QList<int>{20, 40, 60, 80}));
        const Bitmap bitmap = shop.Printer().Documents.first().Pages.first().Bitmaps.first();
        QCOMPARE(bitmap.Planes, 3);
        QCOMPARE(bitmap.BitsPerPixel, 8);
        QCOMPARE(bitmap.Bits->size(), qsizetype{44 * 30});
        QCOMPARE(shop.Printer().Allocated(), 0);
    }

    void anErrorInReadingAPictureIsToldAndItIsStillSent()
    {
        Shop shop;
        Stampa.NumeroCopie = 3;
        shop.Printer().Answers[QStringLiteral("ReadRows")] = {RaisesPrinterError};
        shop.ExpectError(Figure_, Raised);
        shop.ExpectError(Figure_, FigureLines(0, 1, 30, 1, 1));
        QVERIFY(shop.PrintPicture(0, 0, 10, 10));
        QCOMPARE(shop.Printer().Documents.size(), qsizetype{1});
        QCOMPARE(shop.Printer().Allocated(), 0);
    }

    void aPictureWithoutBitmapsOrOfUnknownDepthIsTold()
    {
        Shop shop;
        shop.Printer().GivesBits = false;
        shop.Host.ExpectBox(Box{.Text = QStringLiteral("This device does not support DIB's"),
                                .Title = QStringLiteral(" No DIB support"),
                                .Icon = BoxIcon::Critical});
        QVERIFY(shop.PrintPicture(1, 2, 3, 4));
        shop.Printer().GivesBits = true;
        shop.Printer().BitsPerPixel = 32;
        shop.ExpectError(Figure_, QStringLiteral("Formato grafico sconosciuto.\n\n") +
                                      MLSTesto(QStringLiteral("0100")));
        QVERIFY(shop.PrintPicture(1, 2, 3, 4));
        QVERIFY(shop.Printer().Documents.isEmpty());
    }

    void missingMemoryOfAPictureIsTold()
    {
        Shop shop;
        shop.Printer().Answers[QStringLiteral("Allocate")] = {0};
        shop.ExpectError(Figure_, QStringLiteral("prhDC = 1\nhMem = 0"));
        QVERIFY(shop.PrintPicture(1, 2, 3, 4));
        QVERIFY(shop.Printer().Documents.isEmpty());
    }

    void eachFailedStepOfAPictureIsTold_data()
    {
        QTest::addColumn<QString>("step");
        QTest::addColumn<QList<int>>("answers");
        QTest::addColumn<QString>("text");
        const QList<int> second{1, 0};
        QTest::newRow("rows") << QStringLiteral("ReadRows") << QList<int>{0}
                              << FigureLines(0, 1, 30, 1, 1);
        QTest::newRow("rows, below 0")
            << QStringLiteral("ReadRows") << QList<int>{-1} << FigureLines(-1, 1, 30, 1, 1);
        QTest::newRow("page") << QStringLiteral("StartPage") << second
                              << FigureLines(30, 0, 30, 1, 1);
        QTest::newRow("bitmap") << QStringLiteral("StretchBitmap") << second
                                << FigureLines(30, 1, 0, 1, 1);
        QTest::newRow("end of page")
            << QStringLiteral("EndPage") << second << FigureLines(30, 1, 30, 0, 0);
        QTest::newRow("end of document")
            << QStringLiteral("EndDocument") << second << FigureLines(30, 1, 30, 1, 0);
    }
    void eachFailedStepOfAPictureIsTold()
    {
        QFETCH(QString, step);
        QFETCH(QList<int>, answers);
        QFETCH(QString, text);
        Shop shop;
        Stampa.NumeroCopie = 3;
        shop.Printer().Answers[step] = answers;
        shop.ExpectError(Figure_, text);
        QVERIFY(shop.PrintPicture(0, 0, 10, 10));
        QCOMPARE(shop.Printer().Documents.size(), answers.size());
        QCOMPARE(shop.Printer().Devices, 0);
        QCOMPARE(shop.Printer().Allocated(), 0);
    }

    void aPageBelowNoughtIsNoFailureOfAPicture()
    {
        Shop shop;
        shop.Printer().Answers[QStringLiteral("StartPage")] = {-1};
        QVERIFY(shop.PrintPicture(0, 0, 10, 10));
        QVERIFY(shop.Printer().Documents.first().Ended);
    }

    void aPictureThatCannotStartADocumentIsTold()
    {
        Shop shop;
        shop.Printer().Answers[QStringLiteral("StartDocument")] = {-1};
        shop.ExpectError(Figure_, QStringLiteral("Errore di StartDoc"));
        QVERIFY(shop.PrintPicture(0, 0, 10, 10));
        QVERIFY(shop.Printer().Documents.isEmpty());
    }
};

MORLENE_TEST(TestPrintEngine)
#include "test_print_engine.moc"
