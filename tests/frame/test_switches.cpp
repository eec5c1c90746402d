// Keys, switches and ticks one by one: when they act, and in which order their steps come.
#include "exercises/form_es1.h"
#include "support/exercise_fixture.h"
#include "support/hands.h"
#include "support/registered_tests.h"

#include <QTest>

using namespace platform;

namespace {

class Child : public Player {
public:
    explicit Child(int mode)
    {
        SuoniAttivi = false;
        ModoInput = static_cast<int16_t>(mode);
        Host.Seed(4);
        Form = &Open<FormEs1>();
        Host.TakeEvents();
    }

    // Chooses the right answer, with the light.
    void AnswerRight()
    {
        while (Form->BottoneScansione != Form->IndiceEsatto)
            Step(Host, *Form);
        Choose(*Form);
        Host.TakeEvents();
    }

    FormEs1 *Form;
};

} // namespace

class TestSwitches : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aKeyActsWhenItIsReleasedAndOnceHoweverLongItWasHeld_data()
    {
        QTest::addColumn<int>("mode");
        QTest::addColumn<int>("key");
        QTest::newRow("two keys") << 1 << int(Qt::Key_Space);
        QTest::newRow("arrows") << 3 << int(Qt::Key_Right);
    }
    void aKeyActsWhenItIsReleasedAndOnceHoweverLongItWasHeld()
    {
        QFETCH(int, mode);
        QFETCH(int, key);
        const Child child(mode);
        QWidget *target = KeyTarget(*child.Form).Widget();
        const auto step = static_cast<Qt::Key>(key);
        for (int repeat = 0; repeat < 5; ++repeat)
            QTest::keyPress(target, step);
        QCOMPARE(child.Form->BottoneScansione, int16_t{0});
        QTest::keyRelease(target, step);
        QCOMPARE(child.Form->BottoneScansione, int16_t{1});
        for (int repeat = 0; repeat < 5; ++repeat)
            QTest::keyPress(target, Qt::Key_Return);
        QCOMPARE(Esatti + Errati, 0);
        QTest::keyRelease(target, Qt::Key_Return);
        QCOMPARE(Esatti + Errati, 1);
    }

    // A child may hold Shift, or have the capitals locked.
    void keysActWithShiftToo_data() { RowsOfModes({1, 2, 3}); }
    void keysActWithShiftToo()
    {
        QFETCH(int, mode);
        const Child child(mode);
        QWidget *target = KeyTarget(*child.Form).Widget();
        if (mode != 2) {
            QTest::keyClick(target, mode == 1 ? Qt::Key_Space : Qt::Key_Down, Qt::ShiftModifier);
            QCOMPARE(child.Form->BottoneScansione, int16_t{1});
        }
        QTest::keyClick(target, mode == 2 ? Qt::Key_Space : Qt::Key_Return, Qt::ShiftModifier);
        QCOMPARE(Esatti + Errati, 1);
    }

    void withAMouseNoTimerRunsAndNoButtonIsLit()
    {
        const Child child(0);
        child.Form->Timer1.SetEnabled(true);
        child.Form->OnActivate();
        QVERIFY(!child.Form->Timer1.Enabled());
        for (const Button &button : child.Form->Command1)
            QCOMPARE(button.BackColor(), ToColor(ColoreBottoni));
        // Nor do the keys answer.
        for (const PictureBox *target :
             {&child.Form->PictureScansioneManuale, &child.Form->PictureScansioneAutomatica})
            for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Right})
                QTest::keyClick(target->Widget(), key);
        QCOMPARE(Esatti + Errati, 0);
        QCOMPARE(child.Form->BottoneScansione, int16_t{0});
    }

    void everyButtonHasTheSystemsPointerWhereTheMouseHasNoPart_data() { RowsOfModes({0, 1, 2, 3}); }
    void everyButtonHasTheSystemsPointerWhereTheMouseHasNoPart()
    {
        QFETCH(int, mode);
        const Child child(mode);
        for (const Button &button : child.Form->Command1)
            QCOMPARE(button.MousePointer(),
                     mode == 0 ? platform::MousePointer::Custom : platform::MousePointer::Default);
    }

    void theChoiceOfTheNextTaskTakesItsStepsInOrder_data() { RowsOfModes({1, 2, 3}); }
    void theChoiceOfTheNextTaskTakesItsStepsInOrder()
    {
        QFETCH(int, mode);
        Child child(mode);
        child.AnswerRight();
        Choose(*child.Form);
        const QStringList steps = child.Host.TakeEvents();
        QStringList expected = {QStringLiteral("Command1(2).BackColor=8000000f"),
                                QStringLiteral("Command1(0).BackColor=000000ff"),
                                QStringLiteral("Command1(0).Enabled=True"),
                                QStringLiteral("Command1(1).Enabled=True"),
                                QStringLiteral("Command1(2).Enabled=False"),
                                QStringLiteral("Label1.Caption=") + child.Form->Label1.Caption()};
        // The switch stops the light, and it goes on before anything else.
        if (mode == 2)
            expected = QStringList{QStringLiteral("Timer1.Enabled=False"),
                                   QStringLiteral("Timer1.Enabled=True")} +
                       expected;
        QCOMPARE(steps, expected);
    }

    void anAnswerIsNotTheWayToTheNextTask_data() { RowsOfModes({1, 2, 3}); }
    void anAnswerIsNotTheWayToTheNextTask()
    {
        QFETCH(int, mode);
        Child child(mode);
        const QString task = child.Form->Label1.Caption();
        child.AnswerRight();
        QCOMPARE(child.Form->BottoneScansione, int16_t{2});
        QCOMPARE(child.Form->Label1.Caption(), task);
        Choose(*child.Form);
        QCOMPARE(child.Form->BottoneScansione, int16_t{0});
        QCOMPARE(Esatti, 1);
    }

    // A colour that no control takes: the light cannot leave the button and goes on all the same.
    void aStatementOfATickThatFailsIsPassedOverAndTheNextOneRuns()
    {
        Child child(2);
        ColoreBottoni = 1e12;
        child.Host.Advance(1000);
        QCOMPARE(child.Form->BottoneScansione, int16_t{1});
        QCOMPARE(child.Form->Command1(1).BackColor(), ToColor(ColorePulsantiSelezionati));
        QCOMPARE(child.Host.FatalNumber, 0);
        ColoreBottoni = 0x00C0C0C0;
        ColorePulsantiSelezionati = 1e12;
        child.Host.Advance(1000);
        QCOMPARE(child.Form->BottoneScansione, int16_t{0});
        QCOMPARE(child.Form->Command1(1).BackColor(), Color{0x00C0C0C0});
        QCOMPARE(child.Host.FatalNumber, 0);
    }

    // Where nobody scans it stops the program, as every other error of a handler.
    void theSameInAHandlerOfAKeyIsFatal()
    {
        const Child child(1);
        ColoreBottoni = 1e12;
        child.Form->PictureScansioneManuale.OnKeyUp(KeySpace, 0);
        QCOMPARE(child.Host.FatalNumber, int(Overflow));
        QCOMPARE(child.Form->BottoneScansione, int16_t{0});
    }
};

MORLENE_TEST(TestSwitches)
#include "test_switches.moc"
