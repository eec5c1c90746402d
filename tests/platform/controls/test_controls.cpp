// The vocabulary of the windows: places, arrays, errors, choices and shapes.
#include "platform/controls/sample.h"

#include "support/registered_tests.h"
#include "support/scripted_host.h"

#include <QComboBox>
#include <QTest>
#include <QWidget>

using namespace platform;

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
};

MORLENE_TEST(TestControls)
#include "test_controls.moc"
