// The page set-up dialog's sums: proportions, the middle of the sheet, the largest size, the hidden
// scale.
#include "printing/stampa_desk.h"
#include "support/registered_tests.h"

#include <QLineEdit>
#include <QTest>
#include <QTimer>

using namespace platform;

class TestStampaSizes : public QObject {
    Q_OBJECT

private Q_SLOTS:
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

    void theLargestSizeIsCentredWhereThatIsWanted()
    {
        Desk desk;
        desk.Open([&](FrmStampa &dialog) {
            dialog.chkCentro.SetValue(true);
            dialog.cmdMax.OnClick();
            QCOMPARE((QList<int>{Stampa.StampaW, Stampa.StampaH}), (QList<int>{200, 200}));
            QCOMPARE((QList<int>{Stampa.MargineX, Stampa.MargineY}), (QList<int>{0, 40}));
        });
    }

    void withoutProportionsTheLargestSizeIsPulledBackOntoTheSheet()
    {
        Desk desk;
        desk.Open([&](FrmStampa &dialog) {
            dialog.chkProporzioni.SetValue(false);
            dialog.txtPrX.SetText(QStringLiteral("-5"));
            dialog.cmdMax.OnClick();
            QCOMPARE((QList<int>{Stampa.StampaW, Stampa.StampaH}), (QList<int>{200, 280}));
            // Only what leaves the sheet on the right or below is moved.
            QCOMPARE((QList<int>{Stampa.MargineX, Stampa.MargineY}), (QList<int>{-5, 0}));
            QVERIFY(dialog.lblFuoriFoglio.Visible());
        });
    }

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

    void everyKeyOfTheScaleShowsThePreviewAnew()
    {
        Desk desk;
        desk.Open([&](FrmStampa &dialog) {
            for (const Qt::Key key : {Qt::Key_2, Qt::Key_Backspace, Qt::Key_Return}) {
                dialog.cmdOrigine.OnClick();
                dialog.txtPrX.SetText(QStringLiteral("-1")); // a field alone shows nothing
                QVERIFY(!dialog.lblFuoriFoglio.Visible());
                QTest::keyClick(dialog.txtScala.Widget(), key);
                QVERIFY2(dialog.lblFuoriFoglio.Visible(), qPrintable(QString::number(key)));
            }
            dialog.cmdOrigine.OnClick();
            dialog.txtPrX.SetText(QStringLiteral("-1"));
            QTest::keyClick(dialog.txtScala.Widget(), Qt::Key_X);
            QVERIFY(!dialog.lblFuoriFoglio.Visible());
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
};

MORLENE_TEST(TestStampaSizes)
#include "test_stampa_sizes.moc"
