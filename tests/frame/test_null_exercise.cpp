// The frame carries an exercise of a few lines: what it asks of one is what CONTRIBUTING.md says.
#include "frame/null_exercise.h"

#include "core/windows.h"
#include "platform/machine/application.h"
#include "support/exercise_fixture.h"
#include "support/hands.h"
#include "support/registered_tests.h"

#include <QTest>

using namespace platform;

namespace {

class Child : public Player {
public:
    // The right buttons of the tasks to come.
    Child(int16_t mode, const QList<int> &right)
    {
        SuoniAttivi = false;
        ModoInput = mode;
        for (const int index : right)
            Host.Expect({{2, index}});
        NumeroEserciziEseguiti = 1;
        // 5. A row in the table of windows.
        RegistraFinestra(QStringLiteral("NullExercise"),
                         []() -> platform::Form * { return new NullExercise; });
        MostraFinestra(QStringLiteral("NullExercise"));
        QCoreApplication::processEvents();
        Form = dynamic_cast<NullExercise *>(platform::Form::Find(QStringLiteral("NullExercise")));
    }

    QStringList Panels() const
    {
        return {Form->StatusBar1.Panel(1), Form->StatusBar1.Panel(2), Form->StatusBar1.Panel(3)};
    }
    QList<bool> Lit() const
    {
        const Color light = ToColor(ColorePulsantiSelezionati);
        return {Form->Command1(0).BackColor() == light, Form->Command1(1).BackColor() == light};
    }

    NullExercise *Form = nullptr;
};

QStringList Row(int row)
{
    return {EserciziEseguiti(row, 1), EserciziEseguiti(row, 2), EserciziEseguiti(row, 3)};
}

} // namespace

class TestNullExercise : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void itOpensOverTheScreenAtTheFirstLevel()
    {
        const Child child(0, {1});
        QVERIFY(child.Form->Window()->isVisible());
        QCOMPARE(child.Form->Width(), double{ScreenWidth()});
        QCOMPARE(child.Form->Command1(1).Caption(), QStringLiteral("giusto"));
        QCOMPARE(child.Panels(),
                 QStringList({QStringLiteral("0 Esatti"), QStringLiteral("0 Errati"),
                              QStringLiteral("1 Livello")}));
    }

    void clicksAreCountedAndLeavingWritesTheRow()
    {
        const Child child(0, {1, 0});
        ClickOn(child.Form->Command1(0));
        QCOMPARE(child.Form->Command1(1).Caption(), QStringLiteral("giusto"));
        ClickOn(child.Form->Command1(1));
        QCOMPARE(child.Form->Command1(0).Caption(), QStringLiteral("giusto"));
        QCOMPARE(child.Panels(),
                 QStringList({QStringLiteral("1 Esatti"), QStringLiteral("1 Errati"),
                              QStringLiteral("1 Livello")}));
        ClickInMenuBar(*child.Form, QStringLiteral("mnuEsci"));
        QCOMPARE(Row(1),
                 QStringList({QStringLiteral("1"), QStringLiteral("1"), QStringLiteral("1")}));
        QVERIFY(Form::Find(QStringLiteral("FormMenu")) != nullptr);
        QVERIFY(Form::Find(QStringLiteral("NullExercise")) == nullptr);
    }

    void withTwoKeysTheLightStepsAndChooses()
    {
        Child child(1, {1, 1});
        QCOMPARE(child.Lit(), QList<bool>({true, false}));
        // The mouse answers nothing here.
        ClickOn(child.Form->Command1(1));
        Choose(*child.Form);
        QCOMPARE(Errati, int16_t{1});
        Step(child.Host, *child.Form);
        QCOMPARE(child.Lit(), QList<bool>({false, true}));
        Choose(*child.Form);
        QCOMPARE(Esatti, 1);
        Step(child.Host, *child.Form);
        QCOMPARE(child.Lit(), QList<bool>({true, false}));
    }

    void withOneSwitchTheLightStepsByItself()
    {
        Child child(2, {1, 1});
        Step(child.Host, *child.Form);
        QCOMPARE(child.Lit(), QList<bool>({false, true}));
        Choose(*child.Form);
        QCOMPARE(Esatti, 1);
    }

    void aLevelChosenInTheMenuMakesATaskAndWritesTheRow()
    {
        const Child child(0, {0, 1});
        QCOMPARE(child.Form->mnuLiv.Count(), 2);
        ChooseLevel(*child.Form, 2);
        QVERIFY(child.Form->mnuLiv(2).Checked());
        QCOMPARE(child.Form->Command1(1).Caption(), QStringLiteral("giusto"));
        QCOMPARE(child.Form->StatusBar1.Panel(3), QStringLiteral("2 Livello"));
        QCOMPARE(Row(1),
                 QStringList({QStringLiteral("1"), QStringLiteral("0"), QStringLiteral("0")}));
    }

    void theScoreRaisesTheLevel()
    {
        const Child child(0, {0, 0, 0, 0});
        PassaggioLivelli = true;
        for (int i = 0; i < 3; ++i)
            ClickOn(child.Form->Command1(0));
        QCOMPARE(child.Form->Livello, int16_t{2});
        QCOMPARE(Row(1),
                 QStringList({QStringLiteral("1"), QStringLiteral("3"), QStringLiteral("0")}));
    }
};

MORLENE_TEST(TestNullExercise)
#include "test_null_exercise.moc"
