// The main forms take turns in one window: what a person and the window system see of a change.
#include "platform/controls/form.h"
#include "platform/controls/text_box.h"
#include "support/registered_tests.h"
#include "support/scripted_host.h"

#include <QApplication>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>
#include <QWindow>

using namespace platform;

namespace {

class Plain : public Form {
public:
    explicit Plain(const char *name) : Form(name, 3000, 3000) { SetCaption(Name() + u'!'); }
    TextBox First{{*this, "First"}, {0, 0, 1000, 300}};
    TextBox Second{{*this, "Second"}, {0, 500, 1000, 300}};
};

Plain &Shown(const char *name)
{
    auto *form = new Plain(name);
    form->Show();
    return *form;
}

QWidget *WindowOf(const Form &form)
{
    return form.Window()->window();
}

} // namespace

class TestStage : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aFormTakesThePlaceOfTheOneBeforeInTheSameWindow()
    {
        const ScriptedHost host;
        Plain &before = Shown("Before");
        QWidget *window = WindowOf(before);
        const QWindow *native = window->windowHandle();
        Plain &after = Shown("After");
        before.Unload();
        DoEvents();
        QCOMPARE(WindowOf(after), window);
        QCOMPARE(window->windowHandle(), native);
        QVERIFY(window->isVisible());
        QVERIFY(after.Window()->isVisible());
        QCOMPARE(after.Window()->geometry(), window->rect());
        after.Unload();
    }

    void theWindowIsCalledAsTheFormInFront()
    {
        const ScriptedHost host;
        Plain &before = Shown("Before");
        const QWidget *window = WindowOf(before);
        QCOMPARE(window->windowTitle(), QStringLiteral("Before!"));
        Plain &after = Shown("After");
        QCOMPARE(window->windowTitle(), QStringLiteral("After!"));
        QCOMPARE(window->accessibleDescription(), QStringLiteral("After"));
        before.SetCaption(QStringLiteral("Late"));
        QCOMPARE(window->windowTitle(), QStringLiteral("After!"));
        after.SetCaption(QStringLiteral("Anew"));
        QCOMPARE(window->windowTitle(), QStringLiteral("Anew"));
        before.Unload();
        after.Unload();
    }

    void theKeyboardComesToTheFirstControlOfTheFormThatTakesThePlace()
    {
        const ScriptedHost host;
        Plain &before = Shown("Before");
        QVERIFY(QTest::qWaitForWindowActive(WindowOf(before)));
        QVERIFY(before.First.HasFocus());
        before.Second.SetFocus();
        Plain &after = Shown("After");
        // Until it goes, the one before has the keyboard.
        QVERIFY(before.Second.HasFocus());
        before.Unload();
        QVERIFY(after.First.HasFocus());
        QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("a"));
        QCOMPARE(after.First.Text(), QStringLiteral("a"));
        after.Unload();
    }

    void aFormThatChoseItsControlItselfKeepsIt()
    {
        const ScriptedHost host;
        Plain &before = Shown("Before");
        QVERIFY(QTest::qWaitForWindowActive(WindowOf(before)));
        auto *after = new Plain("After");
        after->OnActivate = [after] { after->Second.SetFocus(); };
        after->Show();
        before.Unload();
        QVERIFY(after->Second.HasFocus());
        after->Unload();
    }

    void theSystemClosesTheFormInFront()
    {
        const ScriptedHost host;
        Plain &before = Shown("Before");
        Plain &after = Shown("After");
        WindowOf(after)->close();
        QVERIFY(after.Unloaded());
        QVERIFY(!before.Unloaded());
        before.Unload();
    }

    void aFormBehindComesForwardWhenItIsShownAgain()
    {
        const ScriptedHost host;
        Plain &before = Shown("Before");
        QVERIFY(QTest::qWaitForWindowActive(WindowOf(before)));
        before.Second.SetFocus();
        int activated = 0;
        before.OnActivate = [&] { ++activated; };
        Plain &after = Shown("After");
        before.Show();
        const QWidget *window = WindowOf(before);
        QCOMPARE(window->windowTitle(), QStringLiteral("Before!"));
        QVERIFY(before.InFront());
        QVERIFY(!after.InFront());
        QVERIFY(before.Window()->isAncestorOf(window->childAt(window->rect().center())));
        QVERIFY(before.Second.HasFocus());
        QCOMPARE(activated, 0);
        before.Unload();
        after.Unload();
    }

    void theFormBehindStandsInFrontWhenTheOneBeforeItGoes()
    {
        ScriptedHost host;
        Plain &first = Shown("First");
        Plain &second = Shown("Second");
        Plain &third = Shown("Third");
        const QPointer<QWidget> window = WindowOf(third);
        QVERIFY(QTest::qWaitForWindowActive(window));
        third.Unload();
        QVERIFY(window->isVisible());
        QCOMPARE(window->windowTitle(), QStringLiteral("Second!"));
        QVERIFY(second.InFront());
        QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("a"));
        QCOMPARE(second.First.Text(), QStringLiteral("a"));
        second.Unload();
        QVERIFY(first.InFront());
        QVERIFY(window->isVisible());
        QVERIFY(!host.Ended);
        first.Unload();
        QVERIFY(!window->isVisible());
        QVERIFY(host.Ended);
    }

    void aFormFollowsTheWindowToAnotherSize()
    {
        const ScriptedHost host;
        Plain &form = Shown("Form");
        int resized = 0;
        form.OnResize = [&] { ++resized; };
        WindowOf(form)->resize(500, 400);
        DoEvents();
        QCOMPARE(form.Window()->size(), QSize(500, 400));
        QVERIFY(resized > 0);
        form.Unload();
    }

    void theWindowGoesWithTheLastForm()
    {
        ScriptedHost host;
        Plain &form = Shown("Form");
        const QPointer<QWidget> window = WindowOf(form);
        form.Unload();
        QVERIFY(!window->isVisible());
        QVERIFY(host.Ended);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(window.isNull());
    }
};

MORLENE_TEST(TestStage)
#include "test_stage.moc"
