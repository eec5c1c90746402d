// Levels: chosen by hand or following the score, with a row of the log for each change.
#include "exercises/form_es1.h"

#include "platform/machine/application.h"
#include "support/exercise_fixture.h"
#include "support/hands.h"
#include "support/registered_tests.h"

#include <QTest>

using namespace platform;

namespace {

QStringList Row(int row)
{
    return {EserciziEseguiti(row, 0), EserciziEseguiti(row, 1), EserciziEseguiti(row, 2),
            EserciziEseguiti(row, 3)};
}

// A window with automatic levels; `NextTask` asks for the next one at a score.
class Child : public Player {
public:
    explicit Child(bool automatic)
    {
        SuoniAttivi = false;
        PassaggioLivelli = automatic;
        Host.Seed(2);
        Form = &Open<FormEs1>();
        Host.TakeEvents();
    }

    void NextTask(int right, int wrong) const
    {
        ClickOn(Form->Command1(Form->IndiceEsatto));
        Esatti = right;
        Errati = static_cast<int16_t>(wrong);
        ClickOn(Form->Command1(2));
    }

    FormEs1 *Form;
};

} // namespace

class TestLevels : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theScoreMovesTheLevel_data()
    {
        QTest::addColumn<int>("level");
        QTest::addColumn<int>("right");
        QTest::addColumn<int>("wrong");
        QTest::addColumn<int>("after");
        QTest::addRow("one below the rise") << 1 << 6 << 0 << 1;
        QTest::addRow("exactly the rise") << 1 << 7 << 0 << 2;
        QTest::addRow("above the rise") << 3 << 12 << 2 << 4;
        QTest::addRow("four errors never fall") << 2 << 0 << 4 << 2;
        QTest::addRow("exactly the fall") << 2 << 0 << 5 << 1;
        QTest::addRow("a fall comes before a rise") << 3 << 30 << 5 << 2;
        QTest::addRow("no fall from the first level") << 1 << 0 << 9 << 1;
        QTest::addRow("a rise from the first level despite errors") << 1 << 13 << 6 << 2;
        QTest::addRow("no rise from the last level") << 6 << 40 << 0 << 6;
        QTest::addRow("a fall from the last level") << 6 << 3 << 5 << 5;
    }

    void theScoreMovesTheLevel()
    {
        QFETCH(int, level);
        QFETCH(int, right);
        QFETCH(int, wrong);
        QFETCH(int, after);
        Child child(true);
        child.Form->Livello = static_cast<int16_t>(level);
        child.NextTask(right, wrong);
        QCOMPARE(child.Form->Livello, static_cast<int16_t>(after));
        QCOMPARE(child.Form->StatusBar1.Panel(3), QStringLiteral("%1 Livello").arg(after));
        const bool moved = after != level;
        QCOMPARE(NumeroEserciziEseguiti, static_cast<int16_t>(moved ? 2 : 1));
        if (moved) {
            // The row carries the level that is left, with its score.
            QCOMPARE(Row(1), QStringList({QString(), QString::number(level), QString::number(right),
                                          QString::number(wrong)}));
            QCOMPARE(Esatti, 0);
            QCOMPARE(Errati, int16_t{0});
            QCOMPARE(child.Form->StatusBar1.Panel(1), QStringLiteral("0 Esatti"));
            QCOMPARE(child.Form->StatusBar1.Panel(2), QStringLiteral("0 Errati"));
        } else {
            QCOMPARE(Esatti, right);
            QCOMPARE(Errati, static_cast<int16_t>(wrong));
            QCOMPARE(EserciziEseguiti(1, 1), QString());
        }
    }

    void theLevelIsWrittenBeforeTheNewSentence()
    {
        Child child(true);
        child.Form->Livello = 2;
        child.NextTask(0, 5);
        const QString events = child.Host.TakeEvents().join(QLatin1Char('\n'));
        const auto panel = events.indexOf(QStringLiteral("Panels(3)=1 Livello"));
        QVERIFY(panel > events.indexOf(QStringLiteral("Panels(2)=0 Errati")));
        QVERIFY(events.indexOf(QStringLiteral("Label1.Caption=")) > panel);
    }

    void withoutAutomaticLevelsTheScoreMovesNothing()
    {
        Child child(false);
        child.NextTask(40, 0);
        child.NextTask(0, 40);
        QCOMPARE(child.Form->Livello, int16_t{1});
        QCOMPARE(NumeroEserciziEseguiti, int16_t{1});
        QVERIFY(child.Form->mnuLivelli.Enabled());
        // Where there is a level to fall from, too.
        child.Form->mnuLiv.OnClick(3);
        child.NextTask(0, 5);
        child.NextTask(40, 0);
        QCOMPARE(child.Form->Livello, int16_t{3});
        QCOMPARE(NumeroEserciziEseguiti, int16_t{2});
    }

    void theMenuIsDeadWhileLevelsMoveByThemselvesAndItsTickStays()
    {
        Child child(true);
        QVERIFY(!child.Form->mnuLivelli.Enabled());
        for (const Qt::Key key : {Qt::Key_F1, Qt::Key_F4, Qt::Key_F6})
            QTest::keyClick(child.Form->Window(), key);
        QCOMPARE(child.Form->Livello, int16_t{1});
        QCOMPARE(NumeroEserciziEseguiti, int16_t{1});
        child.NextTask(7, 0);
        QCOMPARE(child.Form->Livello, int16_t{2});
        QVERIFY(child.Form->mnuLiv(1).Checked());
    }

    void aLevelChosenByHandWritesARowAndStartsAnew()
    {
        Child child(false);
        Esatti = 3;
        Errati = 2;
        QTest::keyClick(child.Form->Window(), Qt::Key_F4);
        QCOMPARE(Row(1), QStringList({QString(), QStringLiteral("1"), QStringLiteral("3"),
                                      QStringLiteral("2")}));
        QCOMPARE(child.Form->Livello, int16_t{4});
        for (int level = 1; level <= 6; ++level)
            QCOMPARE(child.Form->mnuLiv(level).Checked(), level == 4);
        // Panel 3 comes after the new task.
        const QStringList events = child.Host.TakeEvents();
        QCOMPARE(events.last(), QStringLiteral("StatusBar1.Panels(3)=4 Livello"));
        QVERIFY(events.join(QLatin1Char('\n')).contains(QStringLiteral("Label1.Caption=")));
    }

    void theTickedLevelChosenAgainDoesAllOfItToo()
    {
        Child child(false);
        Esatti = 1;
        ChooseLevel(*child.Form, 1);
        ChooseLevel(*child.Form, 1);
        QCOMPARE(NumeroEserciziEseguiti, int16_t{3});
        QCOMPARE(Row(1).at(2), QStringLiteral("1"));
        QCOMPARE(Row(2).at(2), QStringLiteral("0"));
    }

    void aRowPastTheLastOneIsFatalInALevelChange()
    {
        Child child(false);
        NumeroEserciziEseguiti = 500;
        ChooseLevel(*child.Form, 2);
        QCOMPARE(EserciziEseguiti(500, 1), QStringLiteral("1"));
        ChooseLevel(*child.Form, 2);
        QCOMPARE(child.Host.FatalNumber, 9);
    }

    void theSameInAnAutomaticChange()
    {
        Child child(true);
        NumeroEserciziEseguiti = 501;
        child.NextTask(7, 0);
        QCOMPARE(child.Host.FatalNumber, 9);
    }

    void errorsAreCountedInSixteenBits()
    {
        Child child(false);
        Errati = 32767;
        ClickOn(child.Form->Command1(1 - child.Form->IndiceEsatto));
        QCOMPARE(child.Host.FatalNumber, 6);
    }

    void activationStartsAtLevelOneWithoutARowAndLeavesTheTick()
    {
        Child child(false);
        ChooseLevel(*child.Form, 5);
        Esatti = 9;
        const int16_t row = NumeroEserciziEseguiti;
        child.Form->OnActivate();
        QCOMPARE(child.Form->Livello, int16_t{1});
        QCOMPARE(Esatti, 0);
        QCOMPARE(NumeroEserciziEseguiti, row);
        QVERIFY(child.Form->mnuLiv(5).Checked());
        QVERIFY(!child.Form->mnuLiv(1).Checked());
    }
};

MORLENE_TEST(TestLevels)
#include "test_levels.moc"
