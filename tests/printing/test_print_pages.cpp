// Documents for a device that fails at each step in turn: every box with its title, and what is
// left behind.
#include "printing/print_pages.h"
#include "printing/print_shop.h"
#include "support/registered_tests.h"

#include <QTest>

using namespace platform;

namespace {

const QString Form_ = QStringLiteral("Print_Form");
const QString Figure_ = QStringLiteral("Print_PictureBox");

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

class TestPrintPages : public QObject {
    Q_OBJECT

private Q_SLOTS:
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

MORLENE_TEST(TestPrintPages)
#include "test_print_pages.moc"
