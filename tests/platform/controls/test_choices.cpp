// The controls with which an adult chooses: options, check boxes, lists, tabs, scroll bars, number
// fields with their arrows, and the frames in which they lie.
#include "platform/controls/check_box.h"
#include "platform/controls/control_array.h"
#include "platform/controls/frame.h"
#include "platform/controls/label.h"
#include "platform/controls/list_box.h"
#include "platform/controls/option_button.h"
#include "platform/controls/picture.h"
#include "platform/controls/scroll_bar.h"
#include "platform/controls/tab_strip.h"
#include "platform/controls/up_down.h"

#include "language/language.h"
#include "support/application_folder.h"
#include "support/cls_resize.h"
#include "support/registered_tests.h"
#include "support/scripted_host.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QTabBar>
#include <QTest>
#include <QToolButton>

using namespace platform;

namespace {

class Sample : public Form {
public:
    Sample()
        : Form("Sample", 6000, 6000),
          TabStrip1({*this, "TabStrip1"}, {0, 0, 6000, 600},
                    {QStringLiteral("uno"), QStringLiteral("due"), QStringLiteral("tre")}),
          Frame1({*this, "Frame1"}, {150, 750, 2400, 2400}, QStringLiteral("Gruppo")),
          Option1(Frame1.Inside("Option1")), Option2(*this, "Option2"),
          Check1(Frame1.Inside("Check1"), {150, 1500, 1500, 300}, QStringLiteral("Suoni")),
          Frame2(Frame1.Inside("Frame2"), {1500, 300, 750, 750}),
          Label1(Frame2.Inside("Label1"), {75, 75, 300, 300}, QStringLiteral("dentro")),
          List1({*this, "List1"}, {3000, 750, 1500, 1500}),
          HScroll1({*this, "HScroll1"}, {3000, 2400, 1500, 300}, 4, 60),
          Text1({*this, "Text1"}, {3000, 3000, 1050, 300}),
          UpDown1({*this, "UpDown1"}, {4050, 3000, 300, 300}, Text1, -20, 20)
    {
        for (int i = 0; i < 3; ++i)
            Option1.Add(i, Place{150, 300.0 + 300 * i, 1200, 270}, QString::number(i));
        for (int i = 0; i < 2; ++i)
            Option2.Add(i, Place{150, 3300.0 + 300 * i, 1200, 270}, QString::number(i));
        Option1.OnClick = [this](int index) { Log << QStringLiteral("option %1").arg(index); };
        Option2.OnClick = [this](int index) { Log << QStringLiteral("other %1").arg(index); };
        Check1.OnClick = [this] { Log << QStringLiteral("check %1").arg(Check1.Value()); };
        List1.OnClick = [this] { Log << QStringLiteral("list %1").arg(List1.ListIndex()); };
        HScroll1.OnChange = [this] { Log << QStringLiteral("scroll %1").arg(HScroll1.Value()); };
        Text1.OnChange = [this] { Log << QStringLiteral("text ") + Text1.Text(); };
        UpDown1.OnChange = [this] { Log << QStringLiteral("arrows"); };
        TabStrip1.OnClick = [this] {
            Log << QStringLiteral("tab %1").arg(TabStrip1.SelectedItem());
        };
        for (const char *name : {"anna", "bruno", "carla"})
            List1.AddItem(QString::fromLatin1(name));
    }

    QStringList TakeLog() { return std::exchange(Log, {}); }

    TabStrip TabStrip1;
    Frame Frame1;
    ControlArray<OptionButton> Option1;
    ControlArray<OptionButton> Option2;
    CheckBox Check1;
    Frame Frame2;
    Label Label1;
    ListBox List1;
    HScrollBar HScroll1;
    TextBox Text1;
    UpDown UpDown1;
    QStringList Log;
};

Sample &Shown()
{
    auto *form = new Sample;
    form->Show();
    QCoreApplication::processEvents();
    return *form;
}

void Press(const VisualControl &control, QPoint at = {})
{
    QTest::mouseClick(control.Widget(), Qt::LeftButton, {}, at);
}

QStringList List(std::initializer_list<const char *> words)
{
    QStringList list;
    for (const char *word : words)
        list << QString::fromLatin1(word);
    return list;
}

QWidget *Row(const ListBox &list, int row, QPoint &at)
{
    auto *view = dynamic_cast<QListWidget *>(list.Widget());
    at = view->visualItemRect(view->item(row)).center();
    return view->viewport();
}

} // namespace

class TestChoices : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void anOptionTakesTheChoiceFromTheOthersOfItsContainerOnly()
    {
        ScriptedHost host;
        Sample &form = Shown();
        form.Option1(0).SetValue(true);
        form.Option2(1).SetValue(true);
        form.Option1(2).SetValue(true);
        QVERIFY(!form.Option1(0).Value());
        QVERIFY(form.Option1(2).Value());
        QVERIFY(form.Option2(1).Value());
        QCOMPARE(form.TakeLog(), List({"option 0", "other 1", "option 2"}));
    }

    void choosingAnOptionByCodeClicksOnlyWhenItChangesAndAPersonAlways()
    {
        ScriptedHost host;
        Sample &form = Shown();
        form.Option1(1).SetValue(true);
        form.Option1(1).SetValue(true);
        QCOMPARE(form.TakeLog(), List({"option 1"}));
        Press(form.Option1(1));
        Press(form.Option1(0));
        QCOMPARE(form.TakeLog(), List({"option 1", "option 0"}));
        // Nothing is chosen then, and nothing is raised.
        form.Option1(0).SetValue(false);
        QVERIFY(!form.Option1(0).Value());
        QCOMPARE(form.TakeLog(), QStringList());
        form.Option1(0).SetValue(true);
        QCOMPARE(form.TakeLog(), List({"option 0"}));
    }

    void arrowKeysChooseTheNextOption()
    {
        ScriptedHost host;
        Sample &form = Shown();
        form.Option1(0).SetValue(true);
        form.Option1(0).SetFocus();
        form.TakeLog();
        QTest::keyClick(form.Option1(0).Widget(), Qt::Key_Down);
        QVERIFY(form.Option1(1).Value());
        QCOMPARE(form.TakeLog(), List({"option 1"}));
    }

    void aCheckBoxClicksAtEachChange()
    {
        ScriptedHost host;
        Sample &form = Shown();
        form.Check1.SetValue(false);
        QCOMPARE(form.TakeLog(), QStringList());
        form.Check1.SetValue(true);
        form.Check1.SetValue(true);
        QCOMPARE(form.TakeLog(), List({"check 1"}));
        Press(form.Check1);
        QVERIFY(!form.Check1.Value());
        QTest::keyClick(form.Check1.Widget(), Qt::Key_Space);
        QCOMPARE(form.TakeLog(), List({"check 0", "check 1"}));
        form.Check1.SetEnabled(false);
        Press(form.Check1);
        QCOMPARE(form.TakeLog(), QStringList());
    }

    void aListClicksByCodeOnlyWhenItChangesAndByAPersonAlways()
    {
        ScriptedHost host;
        Sample &form = Shown();
        QCOMPARE(form.List1.ListIndex(), -1);
        form.List1.SetListIndex(1);
        form.List1.SetListIndex(1);
        QCOMPARE(form.List1.Text(), QStringLiteral("bruno"));
        QCOMPARE(form.TakeLog(), List({"list 1"}));
        QPoint at;
        QWidget *rows = Row(form.List1, 1, at);
        QTest::mouseClick(rows, Qt::LeftButton, {}, at);
        QCOMPARE(form.TakeLog(), List({"list 1"}));
        Row(form.List1, 2, at);
        QTest::mouseClick(rows, Qt::LeftButton, {}, at);
        QCOMPARE(form.TakeLog(), List({"list 2"}));
        QTest::keyClick(form.List1.Widget(), Qt::Key_Up);
        QCOMPARE(form.TakeLog(), List({"list 1"}));
        QCOMPARE(Skipping([&] { form.List1.SetListIndex(3); }), 380);
        form.List1.Clear();
        QCOMPARE(form.List1.ListCount(), 0);
        QCOMPARE(form.List1.ListIndex(), -1);
        QCOMPARE(form.List1.Text(), QString());
        QCOMPARE(form.TakeLog(), QStringList());
    }

    void aListThatGetsTheKeyboardChoosesNothing()
    {
        ScriptedHost host;
        Sample &form = Shown();
        form.List1.Widget()->setFocus(Qt::TabFocusReason);
        QVERIFY(form.List1.HasFocus());
        QCOMPARE(form.List1.ListIndex(), -1);
        QCOMPARE(form.TakeLog(), QStringList());
    }

    void aTabClicksByCodeOnlyWhenItChangesAndByAPersonAlways()
    {
        ScriptedHost host;
        Sample &form = Shown();
        QCOMPARE(form.TabStrip1.TabCount(), 3);
        QCOMPARE(form.TabStrip1.TabCaption(2), QStringLiteral("due"));
        QCOMPARE(form.TabStrip1.SelectedItem(), 1);
        form.TabStrip1.SetSelectedItem(1);
        QCOMPARE(form.TakeLog(), QStringList());
        form.TabStrip1.SetSelectedItem(3);
        QCOMPARE(form.TakeLog(), List({"tab 3"}));
        const int width = form.TabStrip1.Widget()->width();
        Press(form.TabStrip1, {width - 10, 20});
        QCOMPARE(form.TakeLog(), List({"tab 3"}));
        Press(form.TabStrip1, {width / 2, 20});
        QCOMPARE(form.TakeLog(), List({"tab 2"}));
        for (const int number : {0, 4})
            QCOMPARE(Skipping([&] { form.TabStrip1.SetSelectedItem(number); }), 380);
        // Tabs are no number here, so that no language file reaches them.
        QCOMPARE(Skipping([&] { form.TabStrip1.Tabs(); }), 438);
    }

    void theTabsShareTheWholeWidth()
    {
        ScriptedHost host;
        Sample &form = Shown();
        form.TabStrip1.SetWidth(3000);
        const auto *bar = dynamic_cast<QTabBar *>(form.TabStrip1.Widget());
        QCOMPARE(bar->tabRect(0).left(), 0);
        QCOMPARE(bar->tabRect(2).right(), 199);
        QCOMPARE(bar->tabRect(0).height(), 40);
    }

    void aScrollBarShowsItsWholeTrackAndHowFarItsValueLies()
    {
        ScriptedHost host;
        Sample &form = Shown();
        const auto seen = [&](double across, double down) {
            const QImage bar = form.HScroll1.Widget()->grab().toImage();
            return bar.pixelColor(static_cast<int>(bar.width() * across),
                                  static_cast<int>(bar.height() * down));
        };
        form.HScroll1.SetValue(4);
        const QColor track = seen(0.85, 0.5);
        QVERIFY(track != seen(0.85, 0));
        QCOMPARE(seen(0.5, 0.5), track);
        form.HScroll1.SetValue(60);
        QVERIFY(seen(0.5, 0.5) != track);
        QCOMPARE(seen(0.2, 0.5), seen(0.5, 0.5));
    }

    void aScrollBarTellsEachChangeAndRefusesWhatLiesOutside()
    {
        ScriptedHost host;
        Sample &form = Shown();
        QCOMPARE(form.HScroll1.Value(), 4);
        form.HScroll1.SetValue(4);
        QCOMPARE(form.TakeLog(), QStringList());
        form.HScroll1.SetValue(60);
        QTest::keyClick(form.HScroll1.Widget(), Qt::Key_Left);
        QCOMPARE(form.TakeLog(), List({"scroll 60", "scroll 59"}));
        for (const int value : {3, 61})
            QCOMPARE(Skipping([&] { form.HScroll1.SetValue(value); }), 380);
        QCOMPARE(form.HScroll1.Value(), 59);
    }

    void refusedLettersAreNeitherTypedNorPasted()
    {
        ScriptedHost host;
        Sample &form = Shown();
        auto *line = dynamic_cast<QLineEdit *>(form.Text1.Widget());
        form.Text1.OnKeyPress = [](QChar letter) { return letter.isDigit(); };
        QTest::keyClicks(line, QStringLiteral("1a2-3"));
        QCOMPARE(form.Text1.Text(), QStringLiteral("123"));
        QCOMPARE(form.TakeLog(), List({"text 1", "text 12", "text 123"}));
        QTest::keyClick(line, Qt::Key_Backspace);
        QCOMPARE(form.TakeLog(), List({"text 12"}));
        line->setCursorPosition(1);
        QGuiApplication::clipboard()->setText(QStringLiteral("x9 8"));
        line->paste();
        QCOMPARE(form.Text1.Text(), QStringLiteral("1982"));
        QCOMPARE(line->cursorPosition(), 3);
        QCOMPARE(form.TakeLog(), List({"text 1982"}));
        // Code writes what it likes, and a person types into it.
        form.Text1.SetText(QStringLiteral("-5"));
        QTest::keyClicks(line, QStringLiteral("7"));
        QCOMPARE(form.Text1.Text(), QStringLiteral("-57"));
    }

    void whoListensToKeysDoesNotKeepThemFromBeingTyped()
    {
        ScriptedHost host;
        Sample &form = Shown();
        int downs = 0;
        int ups = 0;
        form.Text1.OnKeyDown = [&](int, int) { ++downs; };
        form.Text1.OnKeyUp = [&](int, int) { ++ups; };
        QTest::keyClicks(form.Text1.Widget(), QStringLiteral("ab"));
        QCOMPARE(form.Text1.Text(), QStringLiteral("ab"));
        QCOMPARE(downs, 2);
        QCOMPARE(ups, 2);
    }

    void theArrowsReadTheirFieldAtAClick()
    {
        ScriptedHost host;
        Sample &form = Shown();
        form.Text1.SetText(QStringLiteral("7 mm"));
        QCOMPARE(form.TakeLog(), List({"text 7 mm"}));
        form.UpDown1.Up();
        QCOMPARE(form.TakeLog(), List({"text 8", "arrows"}));
        const auto buttons = form.UpDown1.Widget()->findChildren<QToolButton *>();
        QCOMPARE(buttons.size(), 2);
        QTest::mouseClick(buttons.at(1), Qt::LeftButton);
        QCOMPARE(form.TakeLog(), List({"text 7", "arrows"}));
        QCOMPARE(buttons.at(1)->accessibleDescription(), QStringLiteral("UpDown1.Down"));
    }

    void theArrowsStopAtTheirEnds()
    {
        ScriptedHost host;
        Sample &form = Shown();
        form.Text1.SetText(QStringLiteral("500"));
        form.TakeLog();
        form.UpDown1.Up();
        QCOMPARE(form.TakeLog(), List({"text 20", "arrows"}));
        form.UpDown1.Up();
        QCOMPARE(form.TakeLog(), QStringList());
        form.Text1.SetText(QString());
        form.TakeLog();
        form.UpDown1.Down();
        QCOMPARE(form.TakeLog(), List({"text -1", "arrows"}));
        form.UpDown1.SetEnabled(false);
        form.UpDown1.Down();
        QCOMPARE(form.TakeLog(), QStringList());
    }

    void theLeadingNumberIsReadAsFarAsItGoes()
    {
        QCOMPARE(LeadingNumber(QStringLiteral(" 12,5")), 12.0);
        QCOMPARE(LeadingNumber(QStringLiteral("-3.5x")), -3.5);
        QCOMPARE(LeadingNumber(QStringLiteral("1 2")), 12.0);
        QCOMPARE(LeadingNumber(QStringLiteral("1d2")), 100.0);
        QCOMPARE(LeadingNumber(QStringLiteral("x1")), 0.0);
        QCOMPARE(LeadingNumber(QString()), 0.0);
    }

    // --- Containers ---

    void aControlInAnotherCountsItsPlaceFromThere()
    {
        ScriptedHost host;
        Sample &form = Shown();
        QCOMPARE(form.Label1.Left(), 75.0);
        QCOMPARE(form.Label1.Widget()->mapTo(form.Client(), QPoint()),
                 QPoint((150 + 1500 + 75) / 15, (750 + 300 + 75) / 15));
        QCOMPARE(form.Option1(2).Widget()->accessibleDescription(), QStringLiteral("Option1(2)"));
        QCOMPARE(form.Option1(2).Widget()->parentWidget(), form.Frame1.Widget());
    }

    void aHiddenContainerHidesWhatLiesInIt()
    {
        ScriptedHost host;
        Sample &form = Shown();
        QVERIFY(form.Check1.Widget()->isVisible());
        form.Frame1.SetVisible(false);
        QVERIFY(!form.Check1.Widget()->isVisible());
        QVERIFY(form.Check1.Visible());
        // What nobody sees takes no keyboard.
        QCOMPARE(Skipping([&] { form.Check1.SetFocus(); }), 5);
        form.Frame1.SetVisible(true);
        QCOMPARE(Skipping([&] { form.Check1.SetFocus(); }), 0);
    }

    void bringingToTheFrontPutsAControlBeforeItsSiblings()
    {
        ScriptedHost host;
        Sample &form = Shown();
        form.List1.SetLeft(150);
        const QPoint both(300 / 15, 900 / 15);
        form.List1.BringToFront();
        QVERIFY(form.List1.Widget()->isAncestorOf(form.Client()->childAt(both)));
        form.Frame1.BringToFront();
        QVERIFY(!form.List1.Widget()->isAncestorOf(form.Client()->childAt(both)));
    }

    void aWindowIsRescaledWithWhatLiesInItsFrames()
    {
        ScriptedHost host;
        host.ScreenSizeNow = {800, 1200};
        auto *form = new Sample;
        clsResize resize;
        resize.SetSourceForm(*form);
        form->OnLoad = [&] { resize.SizeFormToScreen(75); };
        form->OnResize = [&] { resize.ResizeControls(); };
        form->Show();
        QCOMPARE(form->Frame1.Width(), 2400.0 * 2);
        QCOMPARE(form->Frame2.Left(), 1500.0 * 2);
        QCOMPARE(form->Label1.Left(), 75.0 * 2);
        QCOMPARE(form->Label1.Top(), 75.0 * 3);
        QCOMPARE(form->List1.Height(), 1500.0 * 3);
        QCOMPARE(form->UpDown1.Width(), 300.0 * 2);
    }

    void aLanguageReachesCaptionsInFramesButNoTabs()
    {
        ScriptedHost host;
        const ApplicationFolder folder(host);
        folder.WriteLanguage("[Sample]\r\nFrame1.Caption=Group\r\nOption1(2).Caption=two\r\n"
                             "Check1.Caption=Sounds\r\nLabel1.Caption=inside\r\n"
                             "Check1.ToolTipText=tip\r\nTabStrip1.TabCaption(1)=one\r\n");
        LinguaCorrente = QStringLiteral("prova");
        Sample &form = Shown();
        MLSCaricaForm(form);
        QCOMPARE(form.Frame1.Caption(), QStringLiteral("Group"));
        QCOMPARE(form.Option1(2).Caption(), QStringLiteral("two"));
        QCOMPARE(form.Option1(2).Widget()->accessibleName(), QStringLiteral("two"));
        QCOMPARE(form.Check1.Caption(), QStringLiteral("Sounds"));
        QCOMPARE(form.Check1.ToolTipText(), QStringLiteral("tip"));
        QCOMPARE(form.Label1.Caption(), QStringLiteral("inside"));
        QCOMPARE(form.TabStrip1.TabCaption(1), QStringLiteral("uno"));
        LinguaCorrente.clear();
    }

    void aFontKeepsItsStyle()
    {
        ScriptedHost host;
        Sample &form = Shown();
        form.Label1.SetFontItalic(true);
        form.Label1.SetFontUnderline(true);
        QVERIFY(form.Label1.Font().Italic);
        const QFont drawn = ToQFont(form.Label1.Font(), 12);
        QVERIFY(drawn.italic());
        QVERIFY(drawn.underline());
        QVERIFY(!drawn.bold());
    }
};

MORLENE_TEST(TestChoices)
#include "test_choices.moc"
