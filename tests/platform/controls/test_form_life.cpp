// Timers, and the life of a form from its load to its end.
#include "platform/controls/sample.h"

#include "platform/machine/application.h"
#include "support/registered_tests.h"
#include "support/scripted_host.h"

#include <QPointer>
#include <QTest>
#include <QTimer>
#include <QWidget>

using namespace platform;

namespace {

// Takes every event as a handler that fails.
class Thrower : public QObject {
public:
    bool event(QEvent *) override { throw RunTimeError(Overflow); }
};

} // namespace

class TestFormLife : public QObject {
    Q_OBJECT

private Q_SLOTS:
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
};

MORLENE_TEST(TestFormLife)
#include "test_form_life.moc"
