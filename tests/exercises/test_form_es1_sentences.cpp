// "Vero o falso": the sentences of each level, their draws, and fairness to the child.
#include "exercises/form_es1.h"

#include "exercises/truth_fixture.h"
#include "support/fair_tasks.h"
#include "support/hands.h"
#include "support/registered_tests.h"
#include "support/sentence_reader.h"

#include <QMap>
#include <QTest>

#include <cstdlib>

using namespace platform;

class TestFormEs1Sentences : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void eachLevelIsFairToTheChild_data() { RowsOfLevels(6); }

    // Many tasks a level, judged by a reader that sees the sentence and the figure only.
    void eachLevelIsFairToTheChild()
    {
        QFETCH(int, level);
        Player player;
        auto &form = player.OpenForManyTasks<FormEs1>(level, 7919);
        int judged = 0;
        int unpainted = 0;
        int trueOnes = 0;
        int tasks = 0;
        int turns = 0; // tasks with another answer than the one before
        int16_t answer = 0;
        QMap<int16_t, int> parts; // how often the last statement speaks of each
        while (judged < FairTasks) {
            const QString figure = form.ShockwaveFlash1.Shown();
            const QString sentence = form.Label1.Caption();
            const int before = Esatti;
            ++tasks;
            turns += form.IndiceEsatto != answer ? 1 : 0;
            answer = form.IndiceEsatto;
            ++parts[form.QualeParte];
            if (IsPainted(figure)) {
                const bool holds = SentenceIsTrue(sentence, figure);
                trueOnes += holds ? 1 : 0;
                ++judged;
                ClickOn(form.Command1(holds ? 0 : 1));
                QVERIFY2(Esatti == before + 1, qPrintable(sentence + figure));
                QCOMPARE(Errati, int16_t{0});
            } else {
                // After a reward the next three figures of a colouring are shown as the file has
                // them: meant.
                ++unpainted;
                ClickOn(form.Command1(form.IndiceEsatto));
            }
            ClickOn(form.Command1(2));
            player.Host.TakeEvents();
        }
        // Both answers are equally likely: within five deviations.
        QVERIFY2(std::abs(trueOnes - FairTasks / 2) < FiveDeviations(FairTasks),
                 qPrintable(QString::number(trueOnes)));
        // Whatever the answer before was; and the eight parts as well.
        QVERIFY2(std::abs(turns - tasks / 2) < FiveDeviations(tasks),
                 qPrintable(QString::number(turns)));
        QCOMPARE(parts.size(), 8);
        for (const int times : parts)
            QVERIFY2(std::abs(times - tasks / 8) < FiveDeviations(tasks),
                     qPrintable(QString::number(times)));
        qInfo("%d tasks judged, %d true, %d unpainted figures passed over", judged, trueOnes,
              unpainted);
        // Of ten answers between two rewards the first, fifth and ninth see a painted figure.
        QVERIFY(std::abs(3 * unpainted - 7 * judged) < 200);
    }

    void aFalseDoubleSentenceNeverBeginsWithATruth()
    {
        Player player;
        SuoniAttivi = false;
        player.Host.Seed(5);
        auto &form = player.Open<FormEs1>();
        ChooseLevel(form, 4);
        int bothFalse = 0;
        int falseOnes = 0;
        for (int task = 0; task < 2000; ++task) {
            if (form.IndiceEsatto == 1) {
                const QStringList clauses =
                    form.Label1.Caption().toLower().chopped(1).split(QStringLiteral(" e "));
                QCOMPARE(clauses.size(), 2);
                QVERIFY(!SentenceIsTrue(clauses.at(0), form.ShockwaveFlash1.Shown()));
                bothFalse += SentenceIsTrue(clauses.at(1), form.ShockwaveFlash1.Shown()) ? 0 : 1;
                ++falseOnes;
            }
            ChooseLevel(form, 4);
            NumeroEserciziEseguiti = 1;
            player.Host.TakeEvents();
        }
        // The second statement is false or true with equal chance.
        QVERIFY(falseOnes > 800);
        QVERIFY(std::abs(bothFalse * 2 - falseOnes) < 250);
    }

    void theSecondStatementIsDrawnAgainUntilItSpeaksOfAnotherPart()
    {
        Player player;
        SuoniAttivi = false;
        player.Host.Expect(Colouring(AllGreen, 1, 0) + TrueOnTheRoof);
        auto &form = player.Open<FormEs1>();
        player.Host.Expect({{2, 0}, {8, 1}, {8, 1}, {8, 1}, {8, 4}});
        ChooseLevel(form, 4);
        QCOMPARE(form.Label1.Caption(), QStringLiteral("Il tetto è verde e la porta è verde."));
        QVERIFY(!player.Host.DrawsLeft());
    }

    // The second statement's outcome is drawn anew each time the first one came out true.
    void aFalseDoubleSentenceDrawsBothOutcomesUntilTheFirstIsFalse()
    {
        Player player;
        SuoniAttivi = false;
        player.Host.Expect(Colouring(AllGreen, 1, 0) + TrueOnTheRoof);
        auto &form = player.Open<FormEs1>();
        // False; chimney and roof; first true, second false: again; first false, second true.
        player.Host.Expect({{2, 1}, {8, 0}, {8, 1}, {2, 0}, {2, 1}, {2, 1}, {2, 0}, {4, 2}});
        ChooseLevel(form, 4);
        QCOMPARE(form.Label1.Caption(), QStringLiteral("Il comignolo è blu e il tetto è verde."));
        QVERIFY(!player.Host.DrawsLeft());
        // First true twice; then both false.
        player.Host.Expect({{2, 1},
                            {8, 0},
                            {8, 1},
                            {2, 0},
                            {2, 0},
                            {2, 0},
                            {2, 0},
                            {2, 1},
                            {2, 1},
                            {4, 2},
                            {4, 3}});
        ChooseLevel(form, 4);
        QCOMPARE(form.Label1.Caption(), QStringLiteral("Il comignolo è blu e il tetto è giallo."));
        QVERIFY(!player.Host.DrawsLeft());
    }

    void ofSmokeThatIsNotThereAFalseSentenceSaysThatItIs()
    {
        Player player;
        SuoniAttivi = false;
        player.Host.Expect(Colouring(AllGreen, 0, 1) + QList<ScriptedDraw>{{2, 1}, {8, 6}});
        auto &form = player.Open<FormEs1>();
        QCOMPARE(form.Label1.Caption(), QStringLiteral("C'è il fumo."));
        player.Host.Expect({{2, 0}, {8, 6}});
        ChooseLevel(form, 2);
        QCOMPARE(form.Label1.Caption(), QStringLiteral("Non c'è il fumo."));
        player.Host.Expect({{2, 0}, {8, 7}});
        ChooseLevel(form, 2);
        QCOMPARE(form.Label1.Caption(), QStringLiteral("Ci sono le nuvole."));
        player.Host.Expect({{2, 1}, {8, 7}});
        ChooseLevel(form, 1);
        QCOMPARE(form.Label1.Caption(), QStringLiteral("Non ci sono le nuvole."));
    }

    void theDoorTakesTheFeminineOfItsColour()
    {
        Player player;
        player.Host.Expect(Colouring({1, 1, 1, 1, 2, 1}, 1, 0) +
                           QList<ScriptedDraw>{{2, 0}, {8, 4}});
        QCOMPARE(player.Open<FormEs1>().Label1.Caption(), QStringLiteral("La porta è rossa."));
    }

    void levelSixSpendsTheDrawsOfAStatementThatItThrowsAway()
    {
        Player player;
        SuoniAttivi = false;
        player.Host.Expect(Colouring(AllGreen, 1, 0) + TrueOnTheRoof);
        auto &form = player.Open<FormEs1>();
        // True; chimney and roof; first: positive drawn (no colour draw, as it is true), then the
        // negative one with its other colour; second: positive.
        player.Host.Expect({{2, 0}, {8, 0}, {8, 1}, {2, 0}, {4, 1}, {2, 0}});
        ChooseLevel(form, 6);
        QCOMPARE(form.Label1.Caption(),
                 QStringLiteral("Il comignolo non è rosso e il tetto è verde."));
        QVERIFY(!player.Host.DrawsLeft());
        // Now the drawn statement is negative too, and its colour draw is spent twice.
        player.Host.Expect({{2, 0}, {8, 0}, {8, 1}, {2, 1}, {4, 2}, {4, 0}, {4, 3}, {2, 0}});
        ChooseLevel(form, 6);
        QCOMPARE(form.Label1.Caption(),
                 QStringLiteral("Il comignolo non è giallo e il tetto è verde."));
        QVERIFY(!player.Host.DrawsLeft());
    }

    void levelThreeDrawsWhetherItDenies()
    {
        Player player;
        SuoniAttivi = false;
        player.Host.Expect(Colouring(AllGreen, 1, 0) + TrueOnTheRoof);
        auto &form = player.Open<FormEs1>();
        player.Host.Expect({{2, 0}, {8, 4}, {2, 0}});
        form.mnuLiv.OnClick(3);
        QCOMPARE(form.Label1.Caption(), QStringLiteral("La porta è verde."));
        player.Host.Expect({{2, 0}, {8, 4}, {2, 1}, {4, 1}});
        form.mnuLiv.OnClick(3);
        QCOMPARE(form.Label1.Caption(), QStringLiteral("La porta non è rossa."));
        QVERIFY(!player.Host.DrawsLeft());
    }

    void aPairIsDrawnUntilItsPartsDifferAndItsFirstStatementIsFalse()
    {
        Player player;
        SuoniAttivi = false;
        player.Host.Expect(Colouring(AllGreen, 1, 0) + TrueOnTheRoof);
        auto &form = player.Open<FormEs1>();
        // False; the roof, twice the roof again, the smoke; the first statement true twice, then
        // false, the second true.
        player.Host.Expect({{2, 1},
                            {8, 1},
                            {8, 1},
                            {8, 1},
                            {8, 6},
                            {2, 0},
                            {2, 1},
                            {2, 0},
                            {2, 1},
                            {2, 1},
                            {2, 0},
                            {4, 0},
                            {4, 3}});
        form.mnuLiv.OnClick(4);
        QCOMPARE(form.Label1.Caption(), QStringLiteral("Il tetto è giallo e c'è il fumo."));
        QCOMPARE(form.IndiceEsatto, int16_t{1});
        QVERIFY(!player.Host.DrawsLeft());
    }

    // Colours are compared by their numbers and not by their names.
    void twoColoursOfOneNameMakeAFalseSentenceThatReadsTrue()
    {
        Player player;
        SuoniAttivi = false;
        Colori(2, 1) = Colori(1, 1);
        player.Host.Expect(Colouring(AllGreen, 1, 0) + FalseOnTheRoof);
        auto &form = player.Open<FormEs1>();
        QCOMPARE(form.Label1.Caption(), QStringLiteral("Il tetto è verde."));
        ClickOn(form.Command1(0));
        QCOMPARE(Errati, int16_t{1});
        ClickOn(form.Command1(1));
        QCOMPARE(Esatti, 1);
    }

    void capitalsOfTheLanguageDoNotSurvive()
    {
        Player player;
        Messaggi(1) = QStringLiteral("Il TETTO di Anna è ");
        player.Host.Expect(Colouring(AllGreen, 1, 0) + TrueOnTheRoof);
        QCOMPARE(player.Open<FormEs1>().Label1.Caption(),
                 QStringLiteral("Il tetto di anna è verde."));
    }

    void windowsAndDoorTakeTheirOwnNegativePieces()
    {
        Player player;
        SuoniAttivi = false;
        player.Host.Expect(Colouring(AllGreen, 1, 0) + TrueOnTheRoof);
        auto &form = player.Open<FormEs1>();
        player.Host.Expect({{2, 0}, {8, 3}, {4, 1}});
        ChooseLevel(form, 2);
        QCOMPARE(form.Label1.Caption(), QStringLiteral("Le finestre non sono rosse."));
        player.Host.Expect({{2, 1}, {8, 4}});
        ChooseLevel(form, 2);
        QCOMPARE(form.Label1.Caption(), QStringLiteral("La porta non è verde."));
    }

    void writingIsInThePlayersStyle()
    {
        Player player;
        SuoniAttivi = false;
        TipoCarattere = QStringLiteral("maiuscolo");
        player.Host.Expect(Colouring(AllGreen, 1, 0) + TrueOnTheRoof);
        auto &form = player.Open<FormEs1>();
        QCOMPARE(form.Label1.Caption(), QStringLiteral("IL TETTO È VERDE."));
        TipoCarattere = QStringLiteral("corsivo");
        player.Host.Expect(TrueOnTheRoof);
        ChooseLevel(form, 1);
        QCOMPARE(form.Label1.Caption(), QStringLiteral("Il tetto è verde."));
    }
};

MORLENE_TEST(TestFormEs1Sentences)
#include "test_form_es1_sentences.moc"
