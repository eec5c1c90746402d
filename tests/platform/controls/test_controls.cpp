// The vocabulary of the windows: places, events, errors and the life of a form.
#include "platform/controls/button.h"
#include "platform/controls/combo_box.h"
#include "platform/controls/control_array.h"
#include "platform/controls/form.h"
#include "platform/controls/held_keys.h"
#include "platform/controls/label.h"
#include "platform/controls/menu.h"
#include "platform/controls/movie_control.h"
#include "platform/controls/picture.h"
#include "platform/controls/shape.h"
#include "platform/controls/status_bar.h"
#include "platform/controls/text_box.h"
#include "platform/controls/timer.h"

#include "platform/machine/application.h"
#include "support/hands.h"
#include "support/registered_tests.h"
#include "support/scripted_host.h"

#include <QAbstractScrollArea>
#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QMenuBar>
#include <QPointer>
#include <QScrollBar>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>
#include <QWidget>

using namespace platform;

namespace {

// A form of texts in narrow places.
class Texts : public Form {
public:
    Texts()
        : Form("Texts", 6000, 3000),
          Shorter({*this, "Shorter"}, {0, 0, 1500, 600}, QStringLiteral("esci")),
          Longer({*this, "Longer"}, {0, 600, 1500, 600}, QStringLiteral("Colora la morlena")),
          Answer({*this, "Answer"}, {1500, 0, 1605, 1200}),
          Page({*this, "Page"}, {0, 1200, 4500, 1200}, TextBox::Kind::ReadOnlyPage)
    {
    }
    Label Shorter;
    Label Longer;
    Button Answer;
    TextBox Page;
};

// A form with one of each, on the heap as all forms are.
class Sample : public Form {
public:
    Sample()
        : Form("Sample", 3000, 3000), Label1({*this, "Label1"}, {150, 150, 1000, 500}),
          Combo1({*this, "Combo1"}, {150, 700, 1000, 300}),
          Target({*this, "Target"}, {4000, 0, 300, 300}), Timer1({*this, "Timer1"}, 100),
          StatusBar1({*this, "StatusBar1"}, {0, 2500, 3000, 500}, 3),
          Movie1({*this, "Movie1"}, {1500, 150, 1050, 1350}), Buttons(*this, "Buttons"),
          mnuTop({*this, "mnuTop"}, QStringLiteral("&Top")),
          mnuItem({*this, "mnuItem"}, mnuTop, QStringLiteral("item"), QStringLiteral("F1")),
          Line1({*this, "Line1"}, 10, 20, 30, 40)
    {
        Buttons.Add(0, Place{150, 1200, 1000, 500}, QStringLiteral("zero"));
        Buttons.Add(3, Place{150, 1800, 1000, 500}, QStringLiteral("tre"));
    }

    Label Label1;
    ComboBox Combo1;
    PictureBox Target;
    Timer Timer1;
    StatusBar StatusBar1;
    MovieControl Movie1;
    ControlArray<Button> Buttons;
    MenuItem mnuTop;
    MenuItem mnuItem;
    Line Line1;
};

// In the movie control, below the figure.
constexpr QPoint Ground(1, 88);

// Takes every event as a handler that fails.
class Thrower : public QObject {
public:
    bool event(QEvent *) override { throw RunTimeError(Overflow); }
};

int ErrorOf(const std::function<void()> &statement)
{
    return Skipping(statement);
}

Sample &Shown()
{
    auto *form = new Sample;
    form->Show();
    QCoreApplication::processEvents();
    return *form;
}

} // namespace

class TestControls : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void placesStayInTwips()
    {
        ScriptedHost host;
        Sample &form = Shown();
        form.Label1.SetLeft(100.4);
        form.Label1.SetWidth(33.3);
        QCOMPARE(form.Label1.Left(), 100.4);
        QCOMPARE(form.Label1.Width(), 33.3);
        // The edges are rounded and not the sizes: neighbours stay flush.
        form.Label1.SetLeft(7.0);
        form.Label1.SetWidth(16.0);
        form.Buttons(0).SetLeft(23.0);
        QCOMPARE(form.Label1.Widget()->x() + form.Label1.Widget()->width(),
                 form.Buttons(0).Widget()->x());
    }

    void anElementThatIsNotThereIsError340AndAPlainControlHasNoIndex()
    {
        ScriptedHost host;
        Sample &form = Shown();
        QCOMPARE(ErrorOf([&] { form.Buttons(1); }), 340);
        QCOMPARE(form.Buttons(3).Index(), 3);
        QCOMPARE(form.Buttons(3).Key(), QStringLiteral("Buttons(3)"));
        QCOMPARE(ErrorOf([&] { form.Label1.Index(); }), 343);
        QCOMPARE(form.Label1.Widget()->accessibleDescription(), QStringLiteral("Label1"));
    }

    void whatAControlDoesNotHaveIsError438()
    {
        ScriptedHost host;
        Sample &form = Shown();
        Control &timer = form.Timer1;
        Control &picture = form.Target;
        Control &item = form.mnuItem;
        Control &line = form.Line1;
        QCOMPARE(ErrorOf([&] { static_cast<void>(timer.Left()); }), 438);
        QCOMPARE(ErrorOf([&] { timer.SetVisible(true); }), 438);
        QCOMPARE(ErrorOf([&] { picture.SetCaption({}); }), 438);
        QCOMPARE(ErrorOf([&] { item.SetTop(1); }), 438);
        QCOMPARE(ErrorOf([&] { line.SetLeft(1); }), 438);
        QCOMPARE(ErrorOf([&] { static_cast<void>(picture.Tabs()); }), 438);
        QCOMPARE(ErrorOf([&] { form.Combo1.SetHeight(10); }), 383);
        QCOMPARE(ErrorOf([&] { form.StatusBar1.SetTop(10); }), 383);
        QCOMPARE(ErrorOf([&] { form.Combo1.SetListIndex(5); }), 380);
        QCOMPARE(ErrorOf([&] { form.Label1.SetWidth(-1); }), 380);
        QCOMPARE(ErrorOf([&] { static_cast<void>(form.StatusBar1.Panel(4)); }), 380);
    }

    void controlsKeepTheOrderOfDesign()
    {
        ScriptedHost host;
        const Sample &form = Shown();
        QStringList keys;
        for (const Control *control : form.Controls())
            keys << control->Key();
        QCOMPARE(keys.first(), QStringLiteral("Label1"));
        QCOMPARE(keys.at(keys.size() - 2), QStringLiteral("Buttons(0)"));
        QCOMPARE(keys.last(), QStringLiteral("Buttons(3)"));
    }

    void choosingByCodeClicksOnlyWhenItChangesAndAPersonAlways()
    {
        ScriptedHost host;
        Sample &form = Shown();
        int clicks = 0;
        form.Combo1.OnClick = [&] { ++clicks; };
        form.Combo1.AddItem(QStringLiteral("a"));
        form.Combo1.AddItem(QStringLiteral("b"));
        QCOMPARE(form.Combo1.ListIndex(), -1);
        form.Combo1.SetListIndex(1);
        QCOMPARE(clicks, 1);
        form.Combo1.SetListIndex(1);
        QCOMPARE(clicks, 1);
        auto *box = dynamic_cast<QComboBox *>(form.Combo1.Widget());
        Q_EMIT box->activated(1);
        QCOMPARE(clicks, 2);
        form.Combo1.Clear();
        QCOMPARE(clicks, 2);
    }

    // --- Keys ---

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

    // --- The mouse ---

    void aClickNeedsPressAndReleaseOnTheControl()
    {
        ScriptedHost host;
        Sample &form = Shown();
        int clicks = 0;
        form.Label1.OnClick = [&] { ++clicks; };
        QTest::mouseRelease(form.Label1.Widget(), Qt::LeftButton);
        QCOMPARE(clicks, 0);
        QTest::mousePress(form.Label1.Widget(), Qt::LeftButton);
        QTest::mouseRelease(form.Label1.Widget(), Qt::LeftButton, {}, QPoint(-5, -5));
        QCOMPARE(clicks, 0);
        QTest::mouseClick(form.Label1.Widget(), Qt::RightButton);
        QCOMPARE(clicks, 0);
        QTest::mouseClick(form.Label1.Widget(), Qt::LeftButton);
        QCOMPARE(clicks, 1);
        form.Label1.SetEnabled(false);
        QTest::mouseClick(form.Label1.Widget(), Qt::LeftButton);
        QCOMPARE(clicks, 1);
    }

    void aScreenReaderPressesWhatTheMouseCanClick()
    {
        ScriptedHost host;
        Sample &form = Shown();
        int clicks = 0;
        form.Target.OnClick = [&] { ++clicks; };
        form.Label1.OnClick = [&] { ++clicks; };
        form.Label1.SetCaption(QStringLiteral("esci"));
        const QString press = QAccessibleActionInterface::pressAction();
        for (VisualControl *control : {static_cast<VisualControl *>(&form.Target),
                                       static_cast<VisualControl *>(&form.Label1)}) {
            QAccessibleInterface *found = QAccessible::queryAccessibleInterface(control->Widget());
            QCOMPARE(found->role(), QAccessible::Button);
            QVERIFY(found->actionInterface()->actionNames().contains(press));
            clicks = 0;
            found->actionInterface()->doAction(press);
            QCOMPARE(clicks, 0); // whoever asked has an answer first
            QTRY_COMPARE(clicks, 1);
            control->SetEnabled(false);
            QVERIFY(!found->actionInterface()->actionNames().contains(press));
            found->actionInterface()->doAction(press);
            QCoreApplication::processEvents();
            QCOMPARE(clicks, 1);
        }
        QCOMPARE(
            QAccessible::queryAccessibleInterface(form.Label1.Widget())->text(QAccessible::Name),
            QStringLiteral("esci"));
    }

    void aScreenReaderFindsAPictureAndATextWhereNothingCanBeClicked()
    {
        ScriptedHost host;
        Sample &form = Shown();
        QAccessibleInterface *picture = QAccessible::queryAccessibleInterface(form.Target.Widget());
        QCOMPARE(picture->role(), QAccessible::Graphic);
        QVERIFY(!picture->actionInterface()->actionNames().contains(
            QAccessibleActionInterface::pressAction()));
        QCOMPARE(QAccessible::queryAccessibleInterface(form.Label1.Widget())->role(),
                 QAccessible::StaticText);
    }

    void overADisabledControlThePointerIsOverTheWindow()
    {
        ScriptedHost host;
        Sample &form = Shown();
        int overForm = 0;
        int overButton = 0;
        form.OnMouseMove = [&] { ++overForm; };
        form.Buttons.OnMouseMove = [&](int) { ++overButton; };
        form.Buttons(0).SetEnabled(false);
        QTest::mouseMove(form.Buttons(0).Widget());
        QCoreApplication::processEvents();
        QCOMPARE(overButton, 0);
        QVERIFY(overForm > 0);
        overForm = 0;
        QTest::mouseMove(form.Buttons(3).Widget());
        QCoreApplication::processEvents();
        QVERIFY(overButton > 0);
        QCOMPARE(overForm, 0);
    }

    // --- Timers ---

    void timersTickByTheirRules()
    {
        ScriptedHost host;
        Sample &form = Shown();
        int ticks = 0;
        form.Timer1.OnTimer = [&] { ++ticks; };
        host.Advance(1000);
        QCOMPARE(ticks, 0);
        form.Timer1.SetEnabled(true);
        host.Advance(60);
        form.Timer1.SetEnabled(true); // changes nothing
        host.Advance(40);
        QCOMPARE(ticks, 1);
        host.Advance(60);
        form.Timer1.SetInterval(100); // starts anew
        host.Advance(60);
        QCOMPARE(ticks, 1);
        host.Advance(40);
        QCOMPARE(ticks, 2);
        form.Timer1.SetInterval(0);
        host.Advance(1000);
        QCOMPARE(ticks, 2);
    }

    void aTimerOfAnUnloadedFormNeverTicks()
    {
        ScriptedHost host;
        auto *keeper = new Sample;
        keeper->Show();
        Sample &form = Shown();
        int ticks = 0;
        form.Timer1.OnTimer = [&] { ++ticks; };
        form.Timer1.SetEnabled(true);
        form.Unload();
        form.Unload();
        form.Timer1.SetEnabled(false);
        form.Timer1.SetEnabled(true);
        host.Advance(1000);
        QCOMPARE(ticks, 0);
        QVERIFY(!host.Ended);
    }

    // --- The life of a form ---

    void aFormRaisesLoadResizeAndActivateInThisOrderAndOnce()
    {
        ScriptedHost host;
        auto *form = new Sample;
        QStringList events;
        form->OnLoad = [&] { events << QStringLiteral("load"); };
        form->OnResize = [&] { events << QStringLiteral("resize %1").arg(form->ScaleWidth()); };
        form->OnActivate = [&] { events << QStringLiteral("activate"); };
        form->Show();
        QCOMPARE(events.first(), QStringLiteral("load"));
        QCOMPARE(events.last(), QStringLiteral("activate"));
        QVERIFY(events.contains(QStringLiteral("resize 20490")));
        QCOMPARE(events.count(QStringLiteral("activate")), 1);
        form->Show();
        QCOMPARE(events.count(QStringLiteral("load")), 1);
        QCOMPARE(events.count(QStringLiteral("activate")), 1);
        QCOMPARE(form->Height(), ScreenHeight());
        QVERIFY(form->ScaleHeight() < form->Height());
    }

    void theDesignIsWhatLiesUnderTheMenuBar()
    {
        ScriptedHost host;
        class WithMenu : public Form {
        public:
            WithMenu()
                : Form("WithMenu", 6000, 4500), mnuFile({*this, "mnuFile"}, QStringLiteral("File"))
            {
            }
            MenuItem mnuFile;
        };
        auto *form = new WithMenu;
        double atLoad = 0;
        form->OnLoad = [&] { atLoad = form->ScaleHeight(); };
        form->Show();
        QCOMPARE(atLoad, 4500.0);
        form->Drop();
    }

    void anUnloadedFormOutlivesTheHandlerThatUnloadsIt()
    {
        ScriptedHost host;
        auto *keeper = new Sample;
        keeper->Show();
        auto *form = new Sample;
        form->Show();
        const QPointer<QWidget> window(form->Window());
        const FormRef reference(*form);
        bool alive = false;
        QTimer::singleShot(0, form->Window(), [&] {
            form->Unload();
            DoEvents();
            alive = !window.isNull();
        });
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(alive);
        QVERIFY(window.isNull());
        QVERIFY(reference.Get() == nullptr);
    }

    void theEndOfTheLastFormEndsTheProgram()
    {
        ScriptedHost host;
        Sample &first = Shown();
        Sample &second = Shown();
        first.Unload();
        QVERIFY(!host.Ended);
        second.Unload();
        QVERIFY(host.Ended);
    }

    void anErrorThatLeavesAnEventIsFatal()
    {
        ScriptedHost host;
        Thrower thrower;
        QEvent event(QEvent::User);
        QCoreApplication::sendEvent(&thrower, &event);
        QCOMPARE(host.FatalNumber, 6);
        Guarded([] { throw RunTimeError(PathNotFound, QStringLiteral("C:\\x")); });
        QCOMPARE(host.FatalNumber, 76);
        QVERIFY(host.FatalText.contains(QStringLiteral("C:\\x")));
    }

    // A routine that skips errors skips those of its own statements, and none of an event.
    void anErrorInAHandlerIsFatalAlsoWhereErrorsAreSkipped()
    {
        ScriptedHost host;
        Sample &form = Shown();
        const auto fails = [] { throw RunTimeError(PathNotFound, QStringLiteral("C:\\x")); };
        form.Combo1.AddItem(QStringLiteral("a"));
        form.Combo1.OnClick = fails;
        QCOMPARE(Skipping([&] { form.Combo1.SetListIndex(0); }), 0);
        QCOMPARE(std::exchange(host.FatalNumber, 0), 76);
        QVERIFY(host.FatalText.contains(QStringLiteral("C:\\x")));
        QCOMPARE(Skipping([&] { form.Combo1.SetListIndex(1); }), 380);
        QCOMPARE(host.FatalNumber, 0);
        form.Timer1.OnTimer = fails;
        form.Timer1.SetEnabled(true);
        QCOMPARE(Skipping([&] { host.Advance(100); }), 0);
        QCOMPARE(std::exchange(host.FatalNumber, 0), 76);
        auto *other = new Sample;
        for (EventHandler<void()> *event : {&other->OnLoad, &other->OnResize, &other->OnActivate}) {
            *event = fails;
            auto *opened = new Sample;
            opened->OnLoad = other->OnLoad;
            opened->OnResize = other->OnResize;
            opened->OnActivate = other->OnActivate;
            QCOMPARE(Skipping([&] { opened->Show(); }), 0);
            QCOMPARE(std::exchange(host.FatalNumber, 0), 76);
            *event = {};
        }
    }

    // --- Text ---

    void labelsThatShareASizeAreDrawnInTheSmallestThatOneNeeds()
    {
        ScriptedHost host;
        auto &form = *new Texts;
        Label &shorter = form.Shorter;
        Label &longer = form.Longer;
        form.Show();
        for (Label *label : {&shorter, &longer})
            label->SetFontSize(20);
        QCOMPARE(shorter.Drawn().Points, 20.0);
        const double needed = longer.Drawn().Points;
        QVERIFY(needed < 20);
        longer.ShareSize(shorter);
        QCOMPARE(shorter.Drawn().Points, needed);
        QCOMPARE(longer.Drawn().Points, needed);
        QCOMPARE(shorter.Font().Size, 20.0);
        longer.SetWidth(750);
        QVERIFY(longer.Drawn().Points < needed);
        QCOMPARE(shorter.Drawn().Points, longer.Drawn().Points);
        longer.SetCaption(QStringLiteral("ora"));
        QCOMPARE(shorter.Drawn().Points, 20.0);
        QCOMPARE(longer.Drawn().Points, 20.0);
    }

    void buttonsThatShareASizeAreDrawnInTheSmallestThatOneNeeds()
    {
        ScriptedHost host;
        auto &form = *new Texts;
        Button longer({form, "Longer2"}, {0, 0, 1200, 600}, QStringLiteral("diversissima"));
        Button &shorter = form.Answer;
        form.Show();
        for (Button *button : {&shorter, &longer})
            button->SetFontSize(20);
        shorter.SetWidth(3000);
        shorter.SetHeight(1200);
        shorter.SetCaption(QStringLiteral("ora"));
        QCOMPARE(shorter.Drawn().Points, 20.0);
        const double needed = longer.Drawn().Points;
        QVERIFY(needed < 20);
        longer.ShareSize(shorter);
        QCOMPARE(shorter.Drawn().Points, needed);
        QCOMPARE(longer.Drawn().Points, needed);
        QCOMPARE(shorter.Font().Size, 20.0);
        longer.SetWidth(900);
        QVERIFY(longer.Drawn().Points < needed);
        QCOMPARE(shorter.Drawn().Points, longer.Drawn().Points);
        longer.SetWidth(3000);
        longer.SetHeight(1200);
        QCOMPARE(shorter.Drawn().Points, 20.0);
        longer.SetFontSize(16);
        QCOMPARE(shorter.Drawn().Points, 16.0);
        longer.SetCaption(QStringLiteral("diversissima e diversissima e diversissima"));
        QVERIFY(shorter.Drawn().Points < 16);
    }

    void aPageShowsAllOfItsTextAndStaysWhereItIs()
    {
        ScriptedHost host;
        auto &form = *new Texts;
        TextBox &page = form.Page;
        page.SetFontSize(36);
        const QString text = QStringLiteral("Le finestre non sono gialle.\r\n").repeated(6);
        page.SetText(text);
        form.Show();
        QVERIFY(page.Drawn().Whole);
        QVERIFY(page.Drawn().Points < 36);
        auto *view = static_cast<QAbstractScrollArea *>(page.Widget());
        const QImage before = view->grab().toImage();
        const QPointF middle = view->rect().center();
        QWheelEvent turn(middle, view->mapToGlobal(middle), {}, {0, -240}, Qt::NoButton,
                         Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(view->viewport(), &turn);
        QVERIFY(view->grab().toImage() == before);
        QVERIFY(!view->verticalScrollBar()->isVisible());
        QVERIFY(!view->horizontalScrollBar()->isVisible());
        // A wider page is laid anew.
        const double narrow = page.Drawn().Points;
        page.SetWidth(6000);
        QVERIFY(page.Drawn().Points > narrow);
        // What a screen reader reads.
        QAccessibleInterface *spoken = QAccessible::queryAccessibleInterface(view);
        QCOMPARE(spoken->role(), QAccessible::EditableText);
        QAccessibleTextInterface *words = spoken->textInterface();
        QCOMPARE(words->text(0, words->characterCount()),
                 QStringLiteral("Le finestre non sono gialle.\n").repeated(6).chopped(1));
    }

    void aCaptionKeepsClearOfTheEdgesOfItsButton()
    {
        ScriptedHost host;
        auto &form = *new Texts;
        Button &button = form.Answer;
        button.SetBackColor(0x00FFFFFF);
        button.SetForeColor(0x000000FF); // red
        form.Show();
        for (const char *const caption : {"uguale", "diversa", "DIVERSA", "UGUALE"})
            for (const bool bold : {false, true})
                for (const double size : {14.0, 40.0}) {
                    button.SetFontBold(bold);
                    button.SetFontSize(size);
                    button.SetCaption(QString::fromLatin1(caption));
                    const QImage seen = button.Widget()->grab().toImage();
                    const auto isLetter = [&](int x, int y) {
                        const QColor color = seen.pixelColor(x, y);
                        return color.red() > color.green() + 100;
                    };
                    int left = seen.width();
                    int right = 0;
                    for (int x = 0; x < seen.width(); ++x)
                        for (int y = 0; y < seen.height(); ++y)
                            if (isLetter(x, y)) {
                                left = std::min(left, x);
                                right = std::max(right, x);
                            }
                    QVERIFY2(left >= seen.width() / 10, caption);
                    QVERIFY2(seen.width() - 1 - right >= seen.width() / 10, caption);
                }
    }

    void anAutomaticWidthFollowsTheText()
    {
        ScriptedHost host;
        Sample &form = Shown();
        form.Label1.SetAutoSize(true);
        form.Label1.SetCaption(QStringLiteral("a"));
        const double narrow = form.Label1.Width();
        form.Label1.SetFontSize(20);
        QVERIFY(form.Label1.Width() > narrow);
        form.Label1.SetCaption(QStringLiteral("a DIFFERENZE  "));
        QVERIFY(form.Label1.Width() > 5 * narrow);
        QCOMPARE(form.Label1.Font().Size, 20.0);
    }

    void aShapeIsPaintedAnewWhenItsLookChanges()
    {
        class Paints : public QObject {
        public:
            bool eventFilter(QObject *, QEvent *event) override
            {
                Count += event->type() == QEvent::Paint ? 1 : 0;
                return false;
            }
            int Count = 0;
        };
        ScriptedHost host;
        auto *form = new Form("Finestra", 3000, 3000);
        Shape shape({*form, "Shape1"}, {150, 150, 900, 900});
        form->Show();
        QCoreApplication::processEvents();
        Paints paints;
        shape.Widget()->installEventFilter(&paints);
        const std::vector<std::function<void()>> changes = {
            [&] { shape.SetBorderColor(Rgb(0xFF, 0, 0)); }, [&] { shape.SetBorderWidth(3); },
            [&] { shape.SetFilled(true); }, [&] { shape.SetBackColor(Rgb(0, 0xFF, 0)); }};
        for (const auto &change : changes) {
            QCoreApplication::processEvents();
            paints.Count = 0;
            change();
            QTRY_COMPARE(paints.Count, 1);
        }
    }

    // --- Movies ---

    void callsBeforeAMovieAreLostAndTheBackgroundStays()
    {
        ScriptedHost host;
        Sample &form = Shown();
        const QString figure = QStringLiteral(SOURCE_DIR "/data/swf/morlene1.swf");
        const auto paint = [&] {
            form.Movie1.SetVariable(QStringLiteral("QualeOggetto"),
                                    QStringLiteral("tetto.interno"));
            form.Movie1.SetVariable(QStringLiteral("TestoColore.QualeColore"),
                                    QStringLiteral("123456"));
            form.Movie1.TSetProperty(QStringLiteral("fumo"), 7, QStringLiteral("0"));
        };
        form.Movie1.SetBGColor(QStringLiteral("ABCDEF"));
        paint();
        QCOMPARE(form.Movie1.Shown(), QString());
        form.Movie1.SetMovie(figure);
        QVERIFY(!form.Movie1.Shown().contains(QStringLiteral("123456")));
        QVERIFY(form.Movie1.Shown().contains(QStringLiteral("fumo 1")));
        paint();
        QVERIFY(form.Movie1.Shown().contains(QStringLiteral("tetto 123456")));
        QVERIFY(form.Movie1.Shown().contains(QStringLiteral("fumo 0")));
        // A new movie loses paint and visibility, and keeps the background.
        form.Movie1.SetMovie(figure);
        QVERIFY(!form.Movie1.Shown().contains(QStringLiteral("123456")));
        QVERIFY(form.Movie1.Shown().contains(QStringLiteral("fumo 1")));
        QCOMPARE(form.Movie1.BGColor(), QStringLiteral("ABCDEF"));
        form.Movie1.SetMovie(QStringLiteral(SOURCE_DIR "/data/swf/nothing.swf"));
        QCOMPARE(form.Movie1.Shown(), QString());
    }

    void framesTellWhatAClickReports()
    {
        ScriptedHost host;
        Sample &form = Shown();
        QStringList commands;
        form.Movie1.OnFSCommand = [&](const QString &command, const QString &) {
            commands << command;
        };
        form.Movie1.SetMovie(QStringLiteral(SOURCE_DIR "/data/swf/morlene1.swf"));
        const QSize size = form.Movie1.Widget()->size();
        const QPoint roof(size.width() / 2, size.height() * 45 / 100);
        form.Movie1.GotoFrame(2);
        QTest::mouseClick(form.Movie1.Widget(), Qt::LeftButton, {}, roof);
        QCOMPARE(commands, QStringList{QStringLiteral("2")});
        QTest::mouseClick(form.Movie1.Widget(), Qt::LeftButton, {}, QPoint(1, size.height() - 2));
        QCOMPARE(commands.size(), 1);
        form.Movie1.GotoFrame(1);
        QTest::mouseClick(form.Movie1.Widget(), Qt::LeftButton, {}, QPoint(1, size.height() - 2));
        QCOMPARE(commands.size(), 2);
    }

    void aQuickSecondPressOnAFigureCountsInEveryFrame()
    {
        ScriptedHost host;
        Sample &form = Shown();
        QStringList commands;
        form.Movie1.OnFSCommand = [&](const QString &command, const QString &) {
            commands << command;
        };
        form.Movie1.SetMovie(QStringLiteral(SOURCE_DIR "/data/swf/morlene1.swf"));
        constexpr int Roof = 2;
        for (const int frame : {0, 1, 2, 3}) {
            commands.clear();
            form.Movie1.GotoFrame(frame);
            ClickTwiceQuickly(form.Movie1, PlaceOfPart(form.Movie1, Roof));
            const QString told = frame >= 2 ? QStringLiteral("2") : QStringLiteral("0");
            QCOMPARE(commands, QStringList({told, told}));
        }
        // Beside the parts, with the other button or disabled it is none.
        commands.clear();
        ClickTwiceQuickly(form.Movie1, Ground);
        form.Movie1.SetEnabled(false);
        ClickTwiceQuickly(form.Movie1, PlaceOfPart(form.Movie1, Roof));
        QCOMPARE(commands, QStringList());
    }

    void theHandStandsOverWhatTakesAClick()
    {
        ScriptedHost host;
        Sample &form = Shown();
        form.Movie1.SetMovie(QStringLiteral(SOURCE_DIR "/data/swf/morlene1.swf"));
        QWidget *view = form.Movie1.Widget();
        // Without a pointer of its own a figure has the window's.
        const auto handAt = [&](const QPoint &place) {
            QTest::mouseMove(view, place);
            QCoreApplication::processEvents();
            return view->testAttribute(Qt::WA_SetCursor);
        };
        const QPoint smoke = PlaceOfPart(form.Movie1, 7);
        for (const int frame : {0, 1, 2, 3}) {
            form.Movie1.GotoFrame(frame);
            for (int part = 1; part <= 8; ++part)
                QCOMPARE(handAt(PlaceOfPart(form.Movie1, part)), frame == 1 || frame == 2);
            QCOMPARE(handAt(Ground), frame == 1);
        }
        // It comes and goes with the part, and a figure that opens anew under it gets it.
        form.Movie1.GotoFrame(2);
        QVERIFY(handAt(smoke));
        form.Movie1.TSetProperty(QStringLiteral("fumo"), 7, QStringLiteral("0"));
        QTRY_VERIFY(!view->testAttribute(Qt::WA_SetCursor));
        form.Movie1.SetMovie(form.Movie1.Movie());
        form.Movie1.GotoFrame(2);
        QVERIFY(view->testAttribute(Qt::WA_SetCursor));
        // What follows in the control, a reward, has the window's pointer.
        form.Movie1.SetMovie(form.Movie1.Movie());
        QVERIFY(!view->testAttribute(Qt::WA_SetCursor));
    }
};

MORLENE_TEST(TestControls)
#include "test_controls.moc"
