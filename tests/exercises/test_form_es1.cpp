// "Vero o falso": the task, the order of what an answer does, and fairness to the child.
#include "exercises/form_es1.h"

#include "support/exercise_fixture.h"
#include "support/fair_tasks.h"
#include "support/hands.h"
#include "support/registered_tests.h"
#include "support/sentence_reader.h"

#include <QDir>
#include <QTest>

#include <cstdlib>

using namespace platform;

namespace {

const QList<int> AllGreen = {1, 1, 1, 1, 1, 1};

// True sentence on the roof (part 2): index 0, then the part of 8.
const QList<ScriptedDraw> TrueOnTheRoof = {{2, 0}, {8, 1}};
const QList<ScriptedDraw> FalseOnTheRoof = {{2, 1}, {8, 1}, {4, 1}};

} // namespace

class TestFormEs1 : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theWindowStartsAtLevelOneWithEmptyCounters()
    {
        Player player;
        Esatti = 5;
        Errati = 5;
        player.Host.Expect(Colouring(AllGreen, 1, 0) + TrueOnTheRoof);
        auto &form = player.Open<FormEs1>();
        QCOMPARE(form.Livello, int16_t{1});
        QCOMPARE(form.StatusBar1.Panel(1), QStringLiteral("0 Esatti"));
        QCOMPARE(form.StatusBar1.Panel(2), QStringLiteral("0 Errati"));
        QCOMPARE(form.StatusBar1.Panel(3), QStringLiteral("1 Livello"));
        QCOMPARE(form.StatusBar1.Height(), 500.0);
        QVERIFY(form.Command1(0).Enabled());
        QVERIFY(form.Command1(1).Enabled());
        QVERIFY(!form.Command1(2).Enabled());
        QVERIFY(!form.PicMerlino.Visible());
        QCOMPARE(form.Label1.Caption(), QStringLiteral("Il tetto è verde."));
        QCOMPARE(form.Width(), ScreenWidth());
        QCOMPARE(form.BackColor(), Color{0x00FF0000});
    }

    void activationTakesItsStepsInOrder()
    {
        Player player;
        player.Host.Expect(Colouring(AllGreen, 1, 0) + TrueOnTheRoof);
        ColoriVari = false;
        DisabilitaMousePersonalizzato = true;
        player.Host.TakeEvents();
        player.Host.RecordsDraws = true;
        player.Open<FormEs1>();
        const QStringList events = player.Host.TakeEvents();
        const QString inOrder = events.join(QLatin1Char('\n'));
        int last = -1;
        for (const char *step : {"picMerlino.Visible=False",
                                 "Command1(0).MousePointer=0",
                                 "FormEs1.BackColor=00ffff80",
                                 "Command1(0).BackColor=8000000f",
                                 "mnuLivelli.Enabled=True",
                                 "Panels(3)=1 Livello",
                                 "Panels(1)=0 Esatti",
                                 "Panels(2)=0 Errati",
                                 "ShockwaveFlash1.Movie=",
                                 "GotoFrame=0",
                                 "FormEs1.MousePointer=11",
                                 "estratto 0 di 4",
                                 "BGColor=FFFFCC",
                                 "SetVariable=QualeOggetto comignolo.interno",
                                 "SetVariable=TestoColore.QualeColore 00FF00",
                                 "SetVariable=QualeOggetto gradino.interno",
                                 "TSetProperty=fumo 7 1",
                                 "TSetProperty=nuvole 7 0",
                                 "FormEs1.MousePointer=0",
                                 "Command1(0).Enabled=True",
                                 "Command1(2).Enabled=False",
                                 "estratto 1 di 8",
                                 "Label1.Caption=Il tetto è verde."}) {
            const auto at = static_cast<int>(inOrder.indexOf(QString::fromUtf8(step), last + 1));
            QVERIFY2(at > last, step);
            last = at;
        }
    }

    void aRightAnswerByPointerTakesItsStepsInOrder()
    {
        Player player;
        player.Host.Expect(Colouring(AllGreen, 1, 0) + TrueOnTheRoof);
        auto &form = player.Open<FormEs1>();
        player.Host.TakeEvents();
        player.Host.Expect({{6, 2}});
        ClickOn(form.Command1(0));
        QCOMPARE(player.Host.TakeEvents(),
                 QStringList({QStringLiteral("StatusBar1.Panels(1)=1 Esatti"),
                              QStringLiteral("suono si/3.wav"),
                              QStringLiteral("Command1(0).Enabled=False"),
                              QStringLiteral("Command1(1).Enabled=False"),
                              QStringLiteral("Command1(2).Enabled=True")}));
        QCOMPARE(Esatti, 1);
        QCOMPARE(Errati, int16_t{0});
    }

    // Two presses within the toolkit's double-click time, too.
    void aQuickSecondPressCountsLikeTheFirst()
    {
        Player player;
        SuoniAttivi = false;
        player.Host.Expect(Colouring(AllGreen, 1, 0) + FalseOnTheRoof);
        auto &form = player.Open<FormEs1>();
        ClickTwiceQuickly(form.Command1(0));
        QCOMPARE(Errati, int16_t{2});
        // The first press closes the task, so the second one finds nothing to press.
        ClickTwiceQuickly(form.Command1(1));
        QCOMPARE(Esatti, 1);
        QCOMPARE(Errati, int16_t{2});
    }

    void falseIsTheRightAnswerToAFalseSentence_data() { RowsOfModes({0, 1, 2, 3}); }
    void falseIsTheRightAnswerToAFalseSentence()
    {
        QFETCH(int, mode);
        Player player;
        ModoInput = static_cast<int16_t>(mode);
        player.Host.Expect(Colouring(AllGreen, 1, 0) + FalseOnTheRoof);
        auto &form = player.Open<FormEs1>();
        QCOMPARE(form.Label1.Caption(), QStringLiteral("Il tetto è rosso."));
        if (mode != 0)
            Step(player.Host, form);
        player.Host.TakeEvents();
        player.Host.Expect({{6, 3}});
        if (mode == 0)
            ClickOn(form.Command1(1));
        else
            Choose(form);
        QVERIFY(player.Host.TakeEvents().contains(QStringLiteral("suono si/4.wav")));
        QCOMPARE(Esatti, 1);
        QCOMPARE(Errati, int16_t{0});
        QCOMPARE(form.StatusBar1.Panel(1), QStringLiteral("1 Esatti"));
        // By pointer the next task can be pressed; by scanning the light waits on it.
        QCOMPARE(form.Command1(2).Enabled(), mode == 0);
        QCOMPARE(form.Command1(0).Enabled(), mode != 0);
        QCOMPARE(form.Command1(2).BackColor() == ToColor(ColorePulsantiSelezionati), mode != 0);
    }

    void aWrongAnswerKeepsTheTaskAndCountsEachMiss()
    {
        Player player;
        player.Host.Expect(Colouring(AllGreen, 1, 0) + FalseOnTheRoof);
        auto &form = player.Open<FormEs1>();
        QCOMPARE(form.Label1.Caption(), QStringLiteral("Il tetto è rosso."));
        player.Host.TakeEvents();
        player.Host.Expect({{4, 0}, {4, 3}});
        ClickOn(form.Command1(0));
        QCOMPARE(player.Host.TakeEvents(),
                 QStringList({QStringLiteral("suono no/1.wav"),
                              QStringLiteral("StatusBar1.Panels(2)=1 Errati")}));
        ClickOn(form.Command1(0));
        QCOMPARE(Errati, int16_t{2});
        QVERIFY(form.Command1(0).Enabled());
        QVERIFY(!form.Command1(2).Enabled());
        QCOMPARE(form.Label1.Caption(), QStringLiteral("Il tetto è rosso."));
    }

    void fourTasksShareOneColouring()
    {
        Player player;
        SuoniAttivi = false;
        player.Host.Expect(Colouring(AllGreen, 1, 0) + TrueOnTheRoof);
        auto &form = player.Open<FormEs1>();
        for (int task = 2; task <= 4; ++task) {
            player.Host.Expect(TrueOnTheRoof);
            ClickOn(form.Command1(0));
            ClickOn(form.Command1(2));
        }
        player.Host.Expect(Colouring({3, 3, 3, 3, 3, 3}, 0, 0) + TrueOnTheRoof);
        ClickOn(form.Command1(0));
        ClickOn(form.Command1(2));
        QCOMPARE(form.Label1.Caption(), QStringLiteral("Il tetto è blu."));
        QVERIFY(!player.Host.DrawsLeft());
    }

    void clicksAndHoverDoNothingWithoutAMouse()
    {
        Player player;
        SuoniAttivi = false;
        ModoInput = 1;
        player.Host.Expect(Colouring(AllGreen, 1, 0) + TrueOnTheRoof);
        auto &form = player.Open<FormEs1>();
        player.Host.TakeEvents();
        MoveOver(form.Command1(1));
        ClickOn(form.Command1(0));
        ClickOn(form.Command1(1));
        QCOMPARE(player.Host.TakeEvents(), QStringList());
        QCOMPARE(Esatti, 0);
        QCOMPARE(Errati, int16_t{0});
    }

    void theLightFollowsThePointerAndIsWrittenOnlyWhenItDiffers()
    {
        Player player;
        player.Host.Expect(Colouring(AllGreen, 1, 0) + TrueOnTheRoof);
        auto &form = player.Open<FormEs1>();
        player.Host.TakeEvents();
        MoveOver(form.Command1(0));
        QCOMPARE(player.Host.TakeEvents(),
                 QStringList({QStringLiteral("Command1(0).BackColor=000000ff")}));
        MoveOver(form.Command1(1));
        QCOMPARE(player.Host.TakeEvents(),
                 QStringList({QStringLiteral("Command1(0).BackColor=8000000f"),
                              QStringLiteral("Command1(1).BackColor=000000ff")}));
        MoveOver(form.Label1);
        QCOMPARE(player.Host.TakeEvents(),
                 QStringList({QStringLiteral("Command1(1).BackColor=8000000f")}));
    }

    void leavingWritesARowAndShowsTheMenu()
    {
        Player player;
        SuoniAttivi = false;
        player.Host.Expect(Colouring(AllGreen, 1, 0) + TrueOnTheRoof);
        auto &form = player.Open<FormEs1>();
        ClickOn(form.Command1(1));
        ClickOn(form.Command1(0));
        ClickInMenuBar(form, QStringLiteral("mnuEsci"));
        QCOMPARE(EserciziEseguiti(1, 1), QStringLiteral("1"));
        QCOMPARE(EserciziEseguiti(1, 2), QStringLiteral("1"));
        QCOMPARE(EserciziEseguiti(1, 3), QStringLiteral("1"));
        QCOMPARE(NumeroEserciziEseguiti, int16_t{2});
        QVERIFY(Form::Find(QStringLiteral("FormMenu")) != nullptr);
        QVERIFY(Form::Find(QStringLiteral("FormEs1")) == nullptr);
        QVERIFY(!player.Host.Ended);
    }

    void aFullLogNeverBarsTheWayBack()
    {
        Player player;
        player.Host.Seed(1);
        auto &form = player.Open<FormEs1>();
        NumeroEserciziEseguiti = 501;
        ClickInMenuBar(form, QStringLiteral("mnuEsci"));
        QCOMPARE(NumeroEserciziEseguiti, int16_t{502});
        QVERIFY(Form::Find(QStringLiteral("FormMenu")) != nullptr);
        QCOMPARE(player.Host.FatalNumber, 0);
    }

    // Leaving skips its own errors, and none of the menu that it opens.
    void aPlayersFileThatCannotBeWrittenEndsTheProgramOnTheWayBack()
    {
        Player player;
        player.Host.Seed(1);
        auto &form = player.Open<FormEs1>();
        // A folder stands where the file belongs.
        QVERIFY(QDir().mkpath(player.Host.Drive.filePath(
            QStringLiteral("ImpostazioniProgrammiTesmi/morlenekvt/_predefinito.ini"))));
        form.mnuEsci.OnClick();
        QCOMPARE(player.Host.FatalNumber, static_cast<int>(PathFileAccess));
        QVERIFY(player.Host.FatalText.contains(QStringLiteral("_predefinito")));
    }

    void theWindowsOwnEndGoesNowhereAndWritesNothing()
    {
        Player player;
        player.Host.Seed(1);
        auto &form = player.Open<FormEs1>();
        form.Window()->window()->close();
        QVERIFY(player.Host.Ended);
        QCOMPARE(EserciziEseguiti(1, 1), QString());
        QVERIFY(!player.Host.DriveHas(QStringLiteral("ImpostazioniProgrammiTesmi")));
    }

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
        while (judged < FairTasks) {
            const QString figure = form.ShockwaveFlash1.Shown();
            const QString sentence = form.Label1.Caption();
            const int before = Esatti;
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

    void aLostMovieLeavesTheTaskGoing()
    {
        Player player;
        SuoniAttivi = false;
        QTemporaryDir elsewhere;
        player.Host.Seed(3);
        player.Host.Application = elsewhere.path() + QLatin1Char('/');
        auto &form = player.Open<FormEs1>();
        QVERIFY(form.ShockwaveFlash1.Shown().isEmpty());
        ClickOn(form.Command1(form.IndiceEsatto));
        QCOMPARE(Esatti, 1);
        QVERIFY(form.Command1(2).Enabled());
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

MORLENE_TEST(TestFormEs1)
#include "test_form_es1.moc"
