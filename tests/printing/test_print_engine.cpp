// The way from the user's rectangle in millimetres to that of the device, and the question when it
// leaves the sheet.
#include "printing/print_pages.h"
#include "printing/print_shop.h"
#include "support/registered_tests.h"

#include <QTest>

using namespace platform;

class TestPrintEngine : public QObject {
    Q_OBJECT

private Q_SLOTS:
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
};

MORLENE_TEST(TestPrintEngine)
#include "test_print_engine.moc"
