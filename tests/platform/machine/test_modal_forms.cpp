// Modal forms, and what is painted of a form that is being set up.
#include "platform/controls/button.h"
#include "platform/controls/form.h"
#include "platform/controls/timer.h"
#include "platform/machine/machine_host.h"

#include "platform/machine/any_box.h"
#include "support/registered_tests.h"
#include "support/scripted_host.h"

#include <QMessageBox>
#include <QPointer>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

using namespace platform;

namespace {

class Opener : public Form {
public:
    explicit Opener(const char *name = "Opener")
        : Form(name, 3000, 3000), Button1({*this, "Button1"}, {0, 0, 900, 300}),
          Timer1({*this, "Timer1"}, 100)
    {
        OnActivate = [this] { ++Activated; };
        Timer1.OnTimer = [this] { ++Ticks; };
    }
    Button Button1;
    Timer Timer1;
    int Activated = 0;
    int Ticks = 0;
};

// Counts how often a widget is painted.
class Paintings : public QObject {
public:
    explicit Paintings(QWidget *widget) { widget->installEventFilter(this); }
    bool eventFilter(QObject *, QEvent *event) override
    {
        Count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
    int Count = 0;
};

} // namespace

class TestModalForms : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aModalFormComesBackWhenItIsUnloadedAndItsOpenerIsActivatedAnew()
    {
        ScriptedHost host;
        auto *opener = new Opener;
        opener->Show();
        QCOMPARE(opener->Activated, 1);
        auto *form = new Opener("Modal");
        host.ExpectModal([&](Form &shown) {
            QCOMPARE(&shown, form);
            QVERIFY(shown.Shown());
            QCOMPARE(shown.Window()->windowModality(), Qt::ApplicationModal);
            QCOMPARE(form->Activated, 1);
            QCOMPARE(opener->Activated, 1);
            QCOMPARE(Skipping([&] { opener->Button1.SetFocus(); }), 5);
            opener->Timer1.SetEnabled(true);
            host.Advance(300);
            QCOMPARE(opener->Ticks, 3);
            shown.Unload();
        });
        form->ShowModal();
        QCOMPARE(opener->Activated, 2);
        QVERIFY(Form::Find(QStringLiteral("Modal")) == nullptr);
        QVERIFY(!host.Ended);
    }

    void aModalFormKeepsItsSizeInTheMiddleOfTheScreen()
    {
        ScriptedHost host;
        auto *form = new Opener("Modal");
        host.ExpectModal([&](Form &shown) {
            QCOMPARE(shown.Width(), 3000.0);
            QCOMPARE(shown.Left(), (ScreenWidth() - 3000) / 2);
            QCOMPARE(shown.Top(), (ScreenHeight() - 3000) / 2);
            shown.Unload();
        });
        form->ShowModal();
    }

    void aFormIsPaintedWhenItHasBeenSetUp()
    {
        ScriptedHost host;
        auto *form = new Opener;
        Paintings paintings(form->Client());
        form->OnActivate = [&] {
            DoEvents();
            form->SetBackColor(0x00FF0000);
            form->LockDrawing(true);
            form->LockDrawing(false);
            DoEvents();
            QCOMPARE(paintings.Count, 0);
        };
        form->Show();
        DoEvents();
        QCOMPARE(paintings.Count, 1);
    }

    void aFormThatOpensAnotherWhileItIsSetUpIsSeenBehindIt()
    {
        ScriptedHost host;
        auto *opener = new Opener;
        auto *form = new Opener("Modal");
        Paintings paintings(opener->Client());
        opener->OnActivate = [&] {
            if (++opener->Activated == 1)
                form->ShowModal();
        };
        host.ExpectModal([&](Form &shown) {
            DoEvents();
            QVERIFY(paintings.Count > 0);
            shown.Unload();
        });
        opener->Show();
        QCOMPARE(opener->Activated, 2);
    }

    void aFormThatOpensABoxWhileItIsSetUpIsSeenBehindIt()
    {
        ScriptedHost host;
        auto *form = new Opener;
        Paintings paintings(form->Client());
        form->OnActivate = [&] {
            WhenAnyIsOpen([&](QDialog &) {
                DoEvents();
                QVERIFY(paintings.Count > 0);
            });
            QMessageBox(QMessageBox::NoIcon, Markup, Markup).exec();
        };
        form->Show();
        QVERIFY(paintings.Count > 0);
    }

    void aModalFormOpenedByAnotherActivatesThatOne()
    {
        ScriptedHost host;
        auto *opener = new Opener;
        opener->Show();
        auto *first = new Opener("First");
        auto *second = new Opener("Second");
        host.ExpectModal([&](Form &shown) {
            second->ShowModal();
            QCOMPARE(first->Activated, 2);
            QCOMPARE(opener->Activated, 1);
            shown.Unload();
        });
        host.ExpectModal([](Form &shown) { shown.Unload(); });
        first->ShowModal();
        QCOMPARE(opener->Activated, 2);
    }

    void anOpenerThatIsGoneIsNotActivated()
    {
        ScriptedHost host;
        auto *opener = new Opener;
        opener->Show();
        auto *form = new Opener("Modal");
        host.ExpectModal([&](Form &shown) {
            opener->Unload();
            shown.Unload();
        });
        form->ShowModal();
        QVERIFY(host.Ended);
    }

    void theMachineWaitsForAModalFormWhileEventsPass()
    {
        const QTemporaryDir home;
        MachineHost machine(home.path() + QLatin1Char('/'));
        SetHost(&machine);
        auto *opener = new Opener;
        opener->Show();
        auto *form = new Opener("Modal");
        const QPointer<QWidget> window(form->Window());
        QTimer::singleShot(0, form->Window(), [&] { form->Unload(); });
        form->ShowModal();
        QCOMPARE(opener->Activated, 2);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(window.isNull());
        DropForms();
        SetHost(nullptr);
    }
};

MORLENE_TEST(TestModalForms)
#include "test_modal_forms.moc"
