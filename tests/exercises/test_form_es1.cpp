// "Vero o falso": the window, the order of what an answer does, and the way back.
#include "exercises/form_es1.h"

#include "exercises/truth_fixture.h"
#include "support/hands.h"
#include "support/registered_tests.h"

#include <QDir>
#include <QTest>

using namespace platform;

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

    // The level is looked at before the figure is coloured.
    void aTaskTakesItsStepsInOrder()
    {
        Player player;
        SuoniAttivi = false;
        PassaggioLivelli = true;
        player.Host.Expect(Colouring(AllGreen, 1, 0) + TrueOnTheRoof);
        auto &form = player.Open<FormEs1>();
        for (int task = 2; task <= 4; ++task) {
            player.Host.Expect(TrueOnTheRoof);
            ClickOn(form.Command1(0));
            ClickOn(form.Command1(2));
        }
        ClickOn(form.Command1(0));
        Esatti = 7;
        player.Host.TakeEvents();
        player.Host.RecordsDraws = true;
        // Level 2 denies: true of another colour than the roof's.
        player.Host.Expect(Colouring({3, 3, 3, 3, 3, 3}, 0, 0) +
                           QList<ScriptedDraw>{{2, 0}, {8, 1}, {4, 0}});
        ClickOn(form.Command1(2));
        QStringList steps;
        for (const QString &event : player.Host.TakeEvents())
            if (!event.contains(QStringLiteral("etProperty")) &&
                !event.contains(QStringLiteral("SetVariable")) &&
                !event.startsWith(QStringLiteral("estratto")))
                steps << event;
            else if (steps.last() != event.section(QLatin1Char('='), 0, 0).section(' ', 0, 0))
                steps << event.section(QLatin1Char('='), 0, 0).section(' ', 0, 0);
        QCOMPARE(
            steps,
            QStringList({QStringLiteral("StatusBar1.Panels(1)=0 Esatti"),
                         QStringLiteral("StatusBar1.Panels(2)=0 Errati"),
                         QStringLiteral("StatusBar1.Panels(3)=2 Livello"),
                         QStringLiteral("FormEs1.MousePointer=11"), QStringLiteral("estratto"),
                         QStringLiteral("ShockwaveFlash1.BGColor=FFFFCC"),
                         QStringLiteral("ShockwaveFlash1.SetVariable"),
                         QStringLiteral("ShockwaveFlash1.TSetProperty"),
                         QStringLiteral("FormEs1.MousePointer=0"),
                         QStringLiteral("Command1(0).Enabled=True"),
                         QStringLiteral("Command1(1).Enabled=True"),
                         QStringLiteral("Command1(2).Enabled=False"), QStringLiteral("estratto"),
                         QStringLiteral("Label1.Caption=Il tetto non è verde.")}));
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
};

MORLENE_TEST(TestFormEs1)
#include "test_form_es1.moc"
