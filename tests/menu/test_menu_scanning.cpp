// The menu worked by one or two switches or by the arrow keys.
#include "menu/menu_player.h"

#include "exercises/form_es3.h"
#include "platform/base/errors.h"
#include "platform/machine/application.h"
#include "support/registered_tests.h"

#include <QTest>
#include <QWidget>

using namespace platform;

class TestMenuScanning : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aStepLeavesTheColourOfButtonsBehind_data() { RowsOfModes({1, 2, 3}); }
    void aStepLeavesTheColourOfButtonsBehind()
    {
        QFETCH(int, mode);
        MenuPlayer player;
        ModoInput = Integer16(mode);
        ColoreBottoni = 0x00112233;
        const FormMenu &menu = player.OpenMenu();
        for (int step = 0; step < 12; ++step) {
            if (mode == 2)
                player.Host.Advance(1000);
            else
                PressAndRelease(menu.PictureScansioneManuale,
                                mode == 1 ? Qt::Key_Space : Qt::Key_Down);
            for (const Label &item : menu.Command1)
                QCOMPARE(item.BackColor(), item.Index() == (step + 1) % 9
                                               ? ToColor(ColorePulsantiSelezionati)
                                               : Color{0x00112233});
        }
    }

    void thePointerLeavesTheLightOfScanningAlone_data() { RowsOfModes({1, 2, 3}); }
    void thePointerLeavesTheLightOfScanningAlone()
    {
        QFETCH(int, mode);
        MenuPlayer player;
        ModoInput = Integer16(mode);
        const FormMenu &menu = player.OpenMenu();
        player.Host.Advance(1000);
        const QList<int> lit = Lit(menu);
        QCOMPARE(lit.size(), 1);
        player.Host.TakeEvents();
        MoveOver(menu.Command1(4));
        MoveOver(menu.Image1(5));
        QTest::mouseMove(menu.Client(), QPoint(2, 2));
        QCoreApplication::processEvents();
        QCOMPARE(Lit(menu), lit);
        QCOMPARE(player.Host.TakeEvents().filter(QStringLiteral("BackColor")), QStringList());
    }

    void modeOneChoosesTheNinthItemByEnter()
    {
        MenuPlayer player;
        ModoInput = 1;
        const FormMenu &menu = player.OpenMenu();
        for (int step = 1; step <= 8; ++step)
            PressAndRelease(menu.PictureScansioneManuale, Qt::Key_Space);
        QCOMPARE(Lit(menu), QList<int>{8});
        QVERIFY(!player.Host.DriveHas(Settings + QStringLiteral("_predefinito.INI")));
        PressAndRelease(menu.PictureScansioneManuale, Qt::Key_Return);
        QVERIFY(player.Host.Ended);
        QVERIFY(player.Host.DriveHas(Settings + QStringLiteral("_predefinito.INI")));
        QVERIFY(Ridimensionatore == nullptr);
        QCOMPARE(NumeroEserciziEseguiti, int16_t{0});
    }

    void theScanStartsOverOnTheReturnFromAnExercise_data() { RowsOfModes({1, 2, 3}); }
    void theScanStartsOverOnTheReturnFromAnExercise()
    {
        QFETCH(int, mode);
        MenuPlayer player;
        player.Host.Seed(1);
        SuoniAttivi = false;
        ModoInput = Integer16(mode);
        {
            const FormMenu &menu = player.OpenMenu();
            for (int step = 0; step < 3; ++step)
                if (mode == 2)
                    player.Host.Advance(1000);
                else
                    PressAndRelease(menu.PictureScansioneManuale,
                                    mode == 1 ? Qt::Key_Space : Qt::Key_Right);
            QCOMPARE(Lit(menu), QList<int>{3});
            if (mode == 2)
                PressAndRelease(menu.PictureScansioneAutomatica, Qt::Key_Space);
            else
                PressAndRelease(menu.PictureScansioneManuale, Qt::Key_Return);
        }
        auto *exercise = dynamic_cast<FormEs3 *>(Form::Find(QStringLiteral("FormEs3")));
        QVERIFY(exercise != nullptr);
        Esatti = 5;
        Errati = 2;
        exercise->mnuEsci.OnClick();
        const auto *menu = dynamic_cast<FormMenu *>(Form::Find(QStringLiteral("FormMenu")));
        QVERIFY(menu != nullptr);
        QCOMPARE(Esatti, 0);
        QCOMPARE(Errati, int16_t{0});
        QCOMPARE(menu->PosizioneScansione, int16_t{0});
        QCOMPARE(Lit(*menu), mode == 2 ? QList<int>() : QList<int>{0});
        player.Host.Advance(1000);
        QCOMPARE(Lit(*menu), QList<int>{mode == 2 ? 1 : 0});
    }

    void aTickThatCannotHaveTheKeyboardMovesNothingAndSaysNothing_data() { RowsOfModes({1, 2, 3}); }
    void aTickThatCannotHaveTheKeyboardMovesNothingAndSaysNothing()
    {
        QFETCH(int, mode);
        MenuPlayer player;
        ModoInput = Integer16(mode);
        const FormMenu &menu = player.OpenMenu();
        const PictureBox &box =
            mode == 2 ? menu.PictureScansioneAutomatica : menu.PictureScansioneManuale;
        player.Host.Advance(1000);
        const QList<int> lit{mode == 2 ? 1 : 0};
        QCOMPARE(Lit(menu), lit);
        {
            QWidget other;
            other.show();
            other.activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(&other));
            player.Host.Advance(3000);
            QCOMPARE(Lit(menu), lit);
            QVERIFY(!box.HasFocus());
            QCOMPARE(player.Host.FatalNumber, 0);
        }
        menu.Window()->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(menu.Window()));
        player.Host.Advance(1000);
        QCOMPARE(Lit(menu), QList<int>{mode == 2 ? 2 : 0});
        QVERIFY(box.HasFocus());
    }

    void inModesOneAndThreeTheTimerOnlyFetchesTheKeyboard()
    {
        for (const int mode : {1, 3}) {
            MenuPlayer player;
            ModoInput = Integer16(mode);
            VelocitaScansione = 60;
            const FormMenu &menu = player.OpenMenu();
            QVERIFY(!menu.PictureScansioneManuale.HasFocus());
            player.Host.Advance(100);
            QVERIFY(menu.PictureScansioneManuale.HasFocus());
            QCOMPARE(player.Host.Waiting(), 1);
            player.Host.Advance(60000);
            QCOMPARE(player.Host.Waiting(), 0);
            QCOMPARE(Lit(menu), QList<int>{0});
        }
    }

    void modeOneLightsTheFirstItemAtOnceAndGoesRound()
    {
        MenuPlayer player;
        ModoInput = 1;
        const FormMenu &menu = player.OpenMenu();
        QCOMPARE(Lit(menu), QList<int>{0});
        for (int step = 1; step <= 9; ++step) {
            PressAndRelease(menu.PictureScansioneManuale, Qt::Key_Space);
            QCOMPARE(Lit(menu), QList<int>{step % 9});
        }
        PressAndRelease(menu.PictureScansioneManuale, Qt::Key_Right);
        QCOMPARE(Lit(menu), QList<int>{0});
    }

    void modeThreeWalksTheOneLineOfItems()
    {
        MenuPlayer player;
        ModoInput = 3;
        FormMenu &menu = player.OpenMenu();
        QCOMPARE(Lit(menu), QList<int>{0});
        PressAndRelease(menu.PictureScansioneManuale, Qt::Key_Left);
        QCOMPARE(Lit(menu), QList<int>{8});
        PressAndRelease(menu.PictureScansioneManuale, Qt::Key_Down);
        for (int step = 1; step <= 3; ++step)
            PressAndRelease(menu.PictureScansioneManuale, Qt::Key_Down);
        QCOMPARE(Lit(menu), QList<int>{3});
        PressAndRelease(menu.PictureScansioneManuale, Qt::Key_Down);
        QCOMPARE(Lit(menu), QList<int>{4});
        PressAndRelease(menu.PictureScansioneManuale, Qt::Key_Up);
        QCOMPARE(Lit(menu), QList<int>{3});
        PressAndRelease(menu.PictureScansioneManuale, Qt::Key_Space);
        QCOMPARE(Lit(menu), QList<int>{3});
        menu.PosizioneScansione = 8;
        PressAndRelease(menu.PictureScansioneManuale, Qt::Key_Return);
        QVERIFY(player.Host.Ended);
        QVERIFY(player.Host.DriveHas(Settings + QStringLiteral("_predefinito.INI")));
    }

    void modeTwoLightsItemOneFirstAndChoosesOnTheRelease()
    {
        MenuPlayer player;
        player.Host.Seed(1);
        ModoInput = 2;
        VelocitaScansione = 1;
        const FormMenu &menu = player.OpenMenu();
        QCOMPARE(Lit(menu), QList<int>());
        player.Host.Advance(249);
        QCOMPARE(Lit(menu), QList<int>());
        player.Host.Advance(1);
        QCOMPARE(Lit(menu), QList<int>{1});
        player.Host.Advance(250 * 8);
        QCOMPARE(Lit(menu), QList<int>{0});
        QTest::keyPress(menu.PictureScansioneAutomatica.Widget(), Qt::Key_Space);
        QVERIFY(Form::Find(QStringLiteral("FormEs1")) == nullptr);
        // A held switch does not stop the menu's timer.
        player.Host.Advance(250 * 9);
        QCOMPARE(Lit(menu), QList<int>{0});
        QTest::keyRelease(menu.PictureScansioneAutomatica.Widget(), Qt::Key_Space);
        QVERIFY(Form::Find(QStringLiteral("FormEs1")) != nullptr);
    }

    void modeTwoEndsOnTheNinthItemAndHeedsNoOtherKey()
    {
        MenuPlayer player;
        ModoInput = 2;
        const FormMenu &menu = player.OpenMenu();
        player.Host.Advance(1000 * 8);
        QCOMPARE(Lit(menu), QList<int>{8});
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Right, Qt::Key_Left})
            PressAndRelease(menu.PictureScansioneAutomatica, key);
        QCOMPARE(Lit(menu), QList<int>{8});
        QVERIFY(!player.Host.Ended);
        PressAndRelease(menu.PictureScansioneAutomatica, Qt::Key_Space);
        QVERIFY(player.Host.Ended);
        QVERIFY(player.Host.DriveHas(Settings + QStringLiteral("_predefinito.INI")));
    }

    void aKeyActsWhenItIsReleased()
    {
        for (const int mode : {1, 3}) {
            MenuPlayer player;
            player.Host.Seed(1);
            ModoInput = Integer16(mode);
            const FormMenu &menu = player.OpenMenu();
            QWidget *target = menu.PictureScansioneManuale.Widget();
            const Qt::Key step = mode == 1 ? Qt::Key_Space : Qt::Key_Right;
            QTest::keyPress(target, step);
            QCOMPARE(Lit(menu), QList<int>{0});
            QTest::keyRelease(target, step);
            QCOMPARE(Lit(menu), QList<int>{1});
            QTest::keyPress(target, Qt::Key_Return);
            QCOMPARE(NumeroEserciziEseguiti, int16_t{0});
            QTest::keyRelease(target, Qt::Key_Return);
            QCOMPARE(NumeroEserciziEseguiti, int16_t{1});
        }
    }

    void withoutAMouseClicksOnItemsDoNothing()
    {
        MenuPlayer player;
        ModoInput = 1;
        const FormMenu &menu = player.OpenMenu();
        ClickOn(menu.Command1(0));
        MoveOver(menu.Command1(4));
        QCOMPARE(NumeroEserciziEseguiti, int16_t{0});
        QCOMPARE(Lit(menu), QList<int>{0});
    }

    void withAMouseKeysDoNothing()
    {
        MenuPlayer player;
        const FormMenu &menu = player.OpenMenu();
        PressAndRelease(menu.PictureScansioneManuale, Qt::Key_Space);
        PressAndRelease(menu.PictureScansioneAutomatica, Qt::Key_Space);
        PressAndRelease(menu.PictureScansioneManuale, Qt::Key_Return);
        QCOMPARE(Lit(menu), QList<int>());
        QCOMPARE(NumeroEserciziEseguiti, int16_t{0});
    }
};

MORLENE_TEST(TestMenuScanning)
#include "test_menu_scanning.moc"
