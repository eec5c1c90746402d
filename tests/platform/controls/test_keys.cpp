// Keys: a key that is held acts once, and belongs to where it was pressed.
#include "platform/controls/sample.h"

#include "platform/controls/held_keys.h"
#include "support/registered_tests.h"
#include "support/scripted_host.h"

#include <QApplication>
#include <QDialog>
#include <QKeyEvent>
#include <QTest>
#include <QWidget>

using namespace platform;

class TestKeys : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aHeldKeyActsOnce()
    {
        ScriptedHost host;
        Sample &form = Shown();
        QStringList events;
        form.Target.OnKeyDown = [&](int key, int) { events << QStringLiteral("down %1").arg(key); };
        form.Target.OnKeyUp = [&](int key, int) { events << QStringLiteral("up %1").arg(key); };
        QTest::keyPress(form.Target.Widget(), Qt::Key_Space);
        QTest::keyPress(form.Target.Widget(), Qt::Key_Space);
        QTest::keyPress(form.Target.Widget(), Qt::Key_Space);
        QTest::keyRelease(form.Target.Widget(), Qt::Key_Space);
        QTest::keyRelease(form.Target.Widget(), Qt::Key_Space);
        QCOMPARE(events, QStringList({QStringLiteral("down 32"), QStringLiteral("up 32")}));
    }

    void aReleaseWithoutItsPressIsDropped()
    {
        ScriptedHost host;
        Sample &form = Shown();
        int releases = 0;
        form.Target.OnKeyUp = [&](int, int) { ++releases; };
        QTest::keyRelease(form.Target.Widget(), Qt::Key_Return);
        QCOMPARE(releases, 0);
        // A press is forgotten when the keyboard goes to somebody else.
        form.Target.SetFocus();
        QTest::keyPress(form.Target.Widget(), Qt::Key_Return);
        form.Target.Widget()->clearFocus();
        QTest::keyRelease(form.Target.Widget(), Qt::Key_Return);
        QCOMPARE(releases, 0);
    }

    void aKeyHeldIntoAnotherWindowIsNobodysUntilItIsPressedAnew()
    {
        ScriptedHost host;
        Sample &first = Shown();
        first.Target.SetFocus();
        QTest::keyPress(first.Target.Widget(), Qt::Key_Space);
        Sample &second = Shown();
        QStringList events;
        second.Target.OnKeyDown = [&](int, int) { events << QStringLiteral("down"); };
        second.Target.OnKeyUp = [&](int, int) { events << QStringLiteral("up"); };
        first.Unload();
        second.Target.SetFocus();
        QWidget *target = second.Target.Widget();
        for (int repeat = 0; repeat < 3; ++repeat)
            QTest::keyPress(target, Qt::Key_Space);
        QTest::keyRelease(target, Qt::Key_Space);
        QCOMPARE(events, QStringList());
        // Other keys are not concerned, and the key itself is a key again.
        QTest::keyClick(target, Qt::Key_Return);
        QTest::keyClick(target, Qt::Key_Space);
        QCOMPARE(events, QStringList({QStringLiteral("down"), QStringLiteral("up"),
                                      QStringLiteral("down"), QStringLiteral("up")}));
    }

    void aKeyHeldThroughALossOfTheKeyboardIsNobodysInTheSameControlToo()
    {
        ScriptedHost host;
        Sample &form = Shown();
        QStringList events;
        form.Target.SetFocus();
        form.Target.OnKeyDown = [&](int, int) { events << QStringLiteral("down"); };
        form.Target.OnKeyUp = [&](int, int) { events << QStringLiteral("up"); };
        QTest::keyPress(form.Target.Widget(), Qt::Key_Space);
        form.Target.Widget()->clearFocus();
        form.Target.SetFocus();
        QTest::keyPress(form.Target.Widget(), Qt::Key_Space);
        QTest::keyRelease(form.Target.Widget(), Qt::Key_Space);
        QCOMPARE(events, QStringList{QStringLiteral("down")});
    }

    void aKeyHeldSinceADialogIsNobodys()
    {
        ScriptedHost host;
        Sample &form = Shown();
        QStringList events;
        form.Target.OnKeyDown = [&](int, int) { events << QStringLiteral("down"); };
        form.Target.OnKeyUp = [&](int, int) { events << QStringLiteral("up"); };
        {
            QDialog dialog(form.Window());
            dialog.show();
            QTest::keyPress(&dialog, Qt::Key_Return);
        }
        form.Target.SetFocus();
        QTest::keyPress(form.Target.Widget(), Qt::Key_Return);
        QTest::keyRelease(form.Target.Widget(), Qt::Key_Return);
        QCOMPARE(events, QStringList());
    }

    void aFlaggedRepeatIsNoPress()
    {
        ScriptedHost host;
        Sample &form = Shown();
        QStringList events;
        form.Target.OnKeyDown = [&](int, int) { events << QStringLiteral("down"); };
        form.Target.OnKeyUp = [&](int, int) { events << QStringLiteral("up"); };
        const auto send = [&](QEvent::Type type, bool repeat) {
            QKeyEvent key(type, Qt::Key_Space, {}, QStringLiteral(" "), repeat);
            QCoreApplication::sendEvent(form.Target.Widget(), &key);
        };
        // Held since before the window had the keyboard.
        send(QEvent::KeyPress, true);
        send(QEvent::KeyRelease, true);
        send(QEvent::KeyRelease, false);
        QCOMPARE(events, QStringList());
        send(QEvent::KeyPress, false);
        for (int repeat = 0; repeat < 3; ++repeat) {
            send(QEvent::KeyRelease, true);
            send(QEvent::KeyPress, true);
        }
        QCOMPARE(events, QStringList{QStringLiteral("down")});
        send(QEvent::KeyRelease, false);
        QCOMPARE(events, QStringList({QStringLiteral("down"), QStringLiteral("up")}));
    }

    void aKeyReleasedInAnotherProgramIsUpWhenThisOneHasTheKeyboardAgain()
    {
        ScriptedHost host;
        Sample &form = Shown();
        form.Target.SetFocus();
        QTest::keyPress(form.Target.Widget(), Qt::Key_Space);
        form.Target.Widget()->clearFocus();
        // The release goes to the other program.
        QEvent back(QEvent::ApplicationActivate);
        QCoreApplication::sendEvent(qApp, &back);
        QStringList events;
        form.Target.OnKeyDown = [&](int, int) { events << QStringLiteral("down"); };
        form.Target.OnKeyUp = [&](int, int) { events << QStringLiteral("up"); };
        form.Target.SetFocus();
        QTest::keyClick(form.Target.Widget(), Qt::Key_Space);
        QCOMPARE(events, QStringList({QStringLiteral("down"), QStringLiteral("up")}));
    }

    void whatTheKeyboardTellsOverrulesWhatWasSeen()
    {
        ScriptedHost host;
        Sample &form = Shown();
        QStringList events;
        form.Target.OnKeyUp = [&](int key, int) { events << QString::number(key); };
        constexpr int SpaceBar = 65; // numbers of keys on the keyboard
        constexpr int Return = 36;
        const auto send = [&](QEvent::Type type, int number, int key) {
            QKeyEvent event(type, key, {}, static_cast<quint32>(number), 0, 0);
            QCoreApplication::sendEvent(form.Target.Widget(), &event);
        };
        // A release that was lost between two windows.
        send(QEvent::KeyPress, SpaceBar, Qt::Key_Space);
        send(QEvent::KeyPress, Return, Qt::Key_Return);
        KeyboardGoesToAWindow(std::vector<int>{Return});
        send(QEvent::KeyPress, SpaceBar, Qt::Key_Space);
        send(QEvent::KeyRelease, SpaceBar, Qt::Key_Space);
        QCOMPARE(events, QStringList{QStringLiteral("32")});
        send(QEvent::KeyRelease, Return, Qt::Key_Return);
        QCOMPARE(events.size(), 2);
        // Pressed in another program and still held.
        KeyboardComesBack(std::vector<int>{SpaceBar});
        send(QEvent::KeyPress, SpaceBar, Qt::Key_Space);
        send(QEvent::KeyRelease, SpaceBar, Qt::Key_Space);
        QCOMPARE(events.size(), 2);
        // Where nothing is told a window's taking the keyboard changes nothing.
        send(QEvent::KeyPress, SpaceBar, Qt::Key_Space);
        KeyboardGoesToAWindow({});
        send(QEvent::KeyRelease, SpaceBar, Qt::Key_Space);
        QCOMPARE(events.size(), 3);
    }

    void keysHaveTheirClassicCodes()
    {
        ScriptedHost host;
        Sample &form = Shown();
        QList<int> codes;
        form.Target.OnKeyUp = [&](int key, int) { codes << key; };
        for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter, Qt::Key_Left,
                                  Qt::Key_Up, Qt::Key_Right, Qt::Key_Down, Qt::Key_A, Qt::Key_5})
            QTest::keyClick(form.Target.Widget(), key);
        QCOMPARE(codes, QList<int>({32, 13, 13, 37, 38, 39, 40, 65, 53}));
    }

    void shortcutsOfADisabledMenuAreDead()
    {
        ScriptedHost host;
        Sample &form = Shown();
        int clicks = 0;
        form.mnuItem.OnClick = [&] { ++clicks; };
        QTest::keyClick(form.Window(), Qt::Key_F1);
        QCOMPARE(clicks, 1);
        form.mnuTop.SetEnabled(false);
        QTest::keyClick(form.Window(), Qt::Key_F1);
        QCOMPARE(clicks, 1);
        form.mnuTop.SetEnabled(true);
        QTest::keyClick(form.Window(), Qt::Key_F1);
        QCOMPARE(clicks, 2);
    }

    void theFocusIsRefusedWithError5()
    {
        ScriptedHost host;
        Sample &form = Shown();
        QCOMPARE(ErrorOf([&] { form.Target.SetFocus(); }), 0);
        QVERIFY(form.Target.HasFocus());
        form.Target.SetVisible(false);
        QCOMPARE(ErrorOf([&] { form.Target.SetFocus(); }), 5);
        form.Target.SetVisible(true);
        form.Target.SetEnabled(false);
        QCOMPARE(ErrorOf([&] { form.Target.SetFocus(); }), 5);
        form.Target.SetEnabled(true);
        auto *other = new Sample;
        other->Show();
        QCoreApplication::processEvents();
        QCOMPARE(ErrorOf([&] { form.Target.SetFocus(); }), 5);
    }
};

MORLENE_TEST(TestKeys)
#include "test_keys.moc"
