// The windows without a mouse: where the Tab key and the arrows go, and what a screen reader is
// told of what it finds there.
#include "platform/controls/button.h"
#include "platform/controls/control_array.h"
#include "platform/controls/form.h"
#include "platform/controls/frame.h"
#include "platform/controls/label.h"
#include "platform/controls/picture.h"
#include "platform/controls/text_box.h"

#include "support/registered_tests.h"
#include "support/scripted_host.h"

#include <QAccessible>
#include <QApplication>
#include <QTest>
#include <QWidget>

using namespace platform;

namespace {

// Designed from the bottom to the top, on the heap as all forms are.
class Backwards : public Form {
public:
    Backwards()
        : Form("Backwards", 6000, 6000), Last({*this, "Last"}, {0, 5000, 2000, 450}),
          Group({*this, "Group"}, {0, 2000, 6000, 2500}, QStringLiteral("group")),
          Below(Group.Inside("Below"), {0, 1500, 2000, 450}),
          Right(Group.Inside("Right"), {3000, 450, 2000, 450}),
          Left(Group.Inside("Left"), {0, 600, 2000, 450}),
          First({*this, "First"}, {0, 0, 2000, 450})
    {
    }
    TextBox Last;
    Frame Group;
    TextBox Below;
    TextBox Right;
    TextBox Left; // a little lower than its neighbour: still one row
    TextBox First;
};

// Three pictures with one tab stop, a hole between the second row's two, and a button behind them.
class Pictures : public Form {
public:
    Pictures()
        : Form("Pictures", 6000, 6000), Field({*this, "Field"}, {0, 3000, 2000, 450}),
          Squares(*this, "Squares"), Silent(*this, "Silent")
    {
        int index = 0;
        for (const Place &place : {Place{0, 0, 600, 600},
                                   {600, 0, 600, 600},
                                   {0, 600, 600, 600},
                                   {1200, 600, 600, 600}}) {
            Squares.Add(index, place).SetTabStop(index == 0);
            ++index;
        }
        Silent.Add(0, Place{3000, 0, 600, 600}, QStringLiteral("silent"));
        Squares.OnClick = [this](int square) { Clicked << square; };
    }
    TextBox Field;
    ControlArray<PictureBox> Squares;
    ControlArray<Label> Silent;
    QList<int> Clicked;
};

template <typename Window> Window &Shown()
{
    auto *form = new Window;
    form->Show();
    QCoreApplication::processEvents();
    return *form;
}

void Press(int key, Qt::KeyboardModifiers with = Qt::NoModifier)
{
    QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), with);
}

QAccessible::Role RoleOf(QWidget *widget)
{
    return QAccessible::queryAccessibleInterface(widget)->role();
}

} // namespace

class TestKeyboard : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theTabKeyGoesAsAReaderDoes()
    {
        ScriptedHost host;
        Backwards &form = Shown<Backwards>();
        form.First.SetFocus();
        for (TextBox *next : {&form.Left, &form.Right, &form.Below, &form.Last, &form.First}) {
            Press(Qt::Key_Tab);
            QVERIFY2(next->HasFocus(), qPrintable(next->Key()));
        }
    }

    void theArrowsGoFromPictureToPictureAndTakeTheTabStopAlong()
    {
        ScriptedHost host;
        Pictures &form = Shown<Pictures>();
        form.Squares(0).SetFocus();
        Press(Qt::Key_Right);
        QVERIFY(form.Squares(1).HasFocus());
        Press(Qt::Key_Up);
        QVERIFY(form.Squares(1).HasFocus()); // nothing is there
        Press(Qt::Key_Tab);
        QVERIFY(form.Field.HasFocus());
        Press(Qt::Key_Backtab, Qt::ShiftModifier);
        QVERIFY(form.Squares(1).HasFocus());
        Press(Qt::Key_Left);
        Press(Qt::Key_Tab);
        QVERIFY(form.Field.HasFocus()); // and not the stop that was left
        Press(Qt::Key_Backtab, Qt::ShiftModifier);
        Press(Qt::Key_Down);
        QVERIFY(form.Squares(2).HasFocus());
        Press(Qt::Key_Right); // over the hole
        QVERIFY(form.Squares(3).HasFocus());
    }

    void spaceAndEnterDoWhatAClickDoes()
    {
        ScriptedHost host;
        Pictures &form = Shown<Pictures>();
        form.Squares(0).SetFocus();
        Press(Qt::Key_Space);
        Press(Qt::Key_Right);
        Press(Qt::Key_Return);
        QCOMPARE(form.Clicked, QList<int>({0, 1}));
    }

    void aPictureWithTheKeyboardIsMarkedWhereKeysBroughtItThere()
    {
        ScriptedHost host;
        Pictures &form = Shown<Pictures>();
        form.Squares(0).SetFocus();
        const QImage plain = form.Squares(1).Widget()->grab().toImage();
        Press(Qt::Key_Right);
        const QImage marked = form.Squares(1).Widget()->grab().toImage();
        QVERIFY(marked != plain);
        form.Field.SetFocus();
        QCOMPARE(form.Squares(1).Widget()->grab().toImage(), plain);
    }

    void anElementOfAnArrayIsAButtonWhereTheArrayTakesClicks()
    {
        ScriptedHost host;
        Pictures &form = Shown<Pictures>();
        QCOMPARE(RoleOf(form.Squares(0).Widget()), QAccessible::Button);
        QCOMPARE(RoleOf(form.Silent(0).Widget()), QAccessible::StaticText);
    }

    void aWindowIsToldAsAWindow()
    {
        ScriptedHost host;
        Pictures &form = Shown<Pictures>();
        QCOMPARE(RoleOf(form.Window()->window()), QAccessible::Window);
    }
};

MORLENE_TEST(TestKeyboard)
#include "test_keyboard.moc"
