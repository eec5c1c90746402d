// Pixels of a window into memory: sizes of bitmaps, and the box of each thing that is missing.
#include "printing/print_pages.h"
#include "printing/print_shop.h"
#include "support/registered_tests.h"

#include <QTest>

using namespace platform;

class TestGrab : public QObject {
    Q_OBJECT

private Q_SLOTS:
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
};

MORLENE_TEST(TestGrab)
#include "test_grab.moc"
