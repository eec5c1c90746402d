// The printer and its sheet: opening, the driver's record, and every box when one is not there.
#include "printing/print_shop.h"
#include "support/registered_tests.h"

#include <QTest>

using namespace platform;

class TestPrinter : public QObject {
    Q_OBJECT

private Q_SLOTS:
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
};

MORLENE_TEST(TestPrinter)
#include "test_printer.moc"
