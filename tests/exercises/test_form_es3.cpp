// "Uguali - 2°": differences that are found on the houses themselves, by pointer.
#include "exercises/form_es3.h"

#include "exercises/differences_fixture.h"
#include "platform/machine/application.h"
#include "support/fair_tasks.h"
#include "support/registered_tests.h"
#include "support/sentence_reader.h"

#include <QTest>

#include <algorithm>

using namespace platform;

namespace {

// On that figure, or on the other one where smoke or clouds are there only.
void ClickOnDifference(const FormEs3 &form, int part, bool first)
{
    const MovieControl &wanted = first ? form.ShockwaveFlash1 : form.ShockwaveFlash2;
    const MovieControl &other = first ? form.ShockwaveFlash2 : form.ShockwaveFlash1;
    const bool there =
        wanted.Shown().split(QStringLiteral(", ")).at(part - 1).section(QLatin1Char(' '), 1) !=
        QStringLiteral("0");
    ClickOnPart(there ? wanted : other, part);
}

} // namespace

class TestFormEs3 : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theWindowStartsWithOneDifference()
    {
        Player player;
        player.Host.Expect(Task({{8, 1}, {4, 0}, {4, 2}}));
        auto &form = player.Open<FormEs3>();
        // The colour is drawn until it differs.
        QCOMPARE(DifferencesShown(form), QList<int>{2});
        QVERIFY(form.ShockwaveFlash2.Shown().contains(QStringLiteral("tetto 0000FF")));
        QVERIFY(!form.Command1(0).Enabled());
        QVERIFY(form.Command1(1).Enabled());
        QVERIFY(!form.Pannello.Visible());
        QVERIFY(!form.PicMerlino.Visible());
        QCOMPARE(form.StatusBar1.Panel(3), QStringLiteral("1 Livello"));
        QVERIFY(!player.Host.DrawsLeft());
    }

    void onlyTheNextTaskButtonTakesThePlayersColour()
    {
        Player player;
        ColoreBottoni = 0x00123456;
        player.Host.Expect(Task(RedRoof));
        auto &form = player.Open<FormEs3>();
        QCOMPARE(form.Command1(0).BackColor(), Color{0x00123456});
        QCOMPARE(form.Command1(1).BackColor(), SystemButtonFace);
    }

    void bothFiguresGoToTheSameFrame()
    {
        for (const int mode : {0, 1, 2, 3})
            for (const bool systemPointer : {false, true}) {
                Player player;
                ModoInput = static_cast<int16_t>(mode);
                DisabilitaMousePersonalizzato = systemPointer;
                player.Host.Seed(1);
                player.Open<FormEs3>();
                const int frame = mode != 0 ? 0 : systemPointer ? 3 : 2;
                for (const int figure : {1, 2})
                    QVERIFY(player.Host.Events.contains(
                        QStringLiteral("ShockwaveFlash%1.GotoFrame=%2").arg(figure).arg(frame)));
            }
    }

    void aTaskTakesItsStepsInOrder()
    {
        Player player;
        SuoniAttivi = false;
        PassaggioLivelli = true;
        player.Host.Expect(Task(RedRoof));
        auto &form = player.Open<FormEs3>();
        ClickOnPart(form.ShockwaveFlash1, 2);
        Esatti = 12;
        player.Host.TakeEvents();
        player.Host.RecordsDraws = true;
        player.Host.Expect(Colouring({1, 2, 3, 4, 1, 2}, 1, 0) +
                           QList<ScriptedDraw>{{8, 0}, {4, 1}, {8, 4}, {4, 3}});
        ClickOn(form.Command1(0));
        QStringList expected = {QStringLiteral("Command1(0).Enabled=False"),
                                QStringLiteral("StatusBar1.Panels(1)=0 Esatti"),
                                QStringLiteral("StatusBar1.Panels(2)=0 Errati"),
                                QStringLiteral("StatusBar1.Panels(3)=2 Livello"),
                                QStringLiteral("FormEs3.MousePointer=11")};
        const QList<QStringList> colours = {
            {QStringLiteral("00FF00"), QStringLiteral("FF0000"), QStringLiteral("0000FF"),
             QStringLiteral("FFFF00"), QStringLiteral("00FF00"), QStringLiteral("FF0000")},
            {QStringLiteral("FF0000"), QStringLiteral("FF0000"), QStringLiteral("0000FF"),
             QStringLiteral("FFFF00"), QStringLiteral("FFFF00"), QStringLiteral("FF0000")}};
        for (const int figure : {0, 1}) {
            const QString name = QStringLiteral("ShockwaveFlash%1.").arg(figure + 1);
            expected << name + QStringLiteral("BGColor=FFFFCC");
            for (int part = 0; part < 6; ++part) {
                const char *const names[] = {"comignolo", "tetto", "pareti",
                                             "finestre",  "porta", "gradino"};
                expected << name + QStringLiteral("SetVariable=QualeOggetto %1.interno")
                                       .arg(QLatin1String(names[part]))
                         << name + QStringLiteral("SetVariable=TestoColore.QualeColore ") +
                                colours.at(figure).at(part);
            }
            expected << name + QStringLiteral("TSetProperty=fumo 7 1")
                     << name + QStringLiteral("TSetProperty=nuvole 7 0");
        }
        expected << QStringLiteral("FormEs3.MousePointer=0");
        QStringList steps = player.Host.TakeEvents();
        // All draws come between the hourglass and the first paint.
        const auto isDraw = [](const QString &event) {
            return event.startsWith(QStringLiteral("estratto"));
        };
        QVERIFY(isDraw(steps.at(5)));
        QCOMPARE(std::count_if(steps.begin() + 5, steps.begin() + 17, isDraw), 12);
        steps.removeIf(isDraw);
        QCOMPARE(steps, expected);
        QCOMPARE(form.DifferenzeTrovate, int16_t{0});
    }

    void onTheLastLevelSmokeAndCloudsMayBeAmongTheFour()
    {
        Player player;
        SuoniAttivi = false;
        player.Host.Expect(Task(RedRoof));
        auto &form = player.Open<FormEs3>();
        player.Host.Expect(
            Task({{8, 7}, {2, 1}, {8, 0}, {4, 3}, {8, 6}, {2, 1}, {8, 7}, {8, 5}, {4, 2}}));
        ChooseLevel(form, 4);
        QCOMPARE(DifferencesShown(form), QList<int>({1, 6, 7, 8}));
        QVERIFY(!player.Host.DrawsLeft());
    }

    void theFigureThatIsClickedIsTheOneThatChanges()
    {
        for (const bool first : {true, false}) {
            Player player;
            player.Host.Expect(Task(RedRoof));
            auto &form = player.Open<FormEs3>();
            player.Host.TakeEvents();
            player.Host.Expect({{6, 0}});
            ClickOnPart(first ? form.ShockwaveFlash1 : form.ShockwaveFlash2, 2);
            QVERIFY(DifferencesShown(form).isEmpty());
            const QString roof =
                QStringLiteral("tetto %1")
                    .arg(first ? QStringLiteral("FF0000") : QStringLiteral("00FF00"));
            QVERIFY(form.ShockwaveFlash1.Shown().contains(roof));
            const QStringList events = player.Host.TakeEvents();
            const QString figure =
                first ? QStringLiteral("ShockwaveFlash1.") : QStringLiteral("ShockwaveFlash2.");
            // The whole figure is painted, then the counter, the button, the sound.
            QCOMPARE(events.first(), figure + QStringLiteral("BGColor=FFFFCC"));
            QCOMPARE(events.filter(QStringLiteral("SetVariable")).size(), 12);
            QCOMPARE(events.mid(events.size() - 3),
                     QStringList({QStringLiteral("StatusBar1.Panels(1)=1 Esatti"),
                                  QStringLiteral("Command1(0).Enabled=True"),
                                  QStringLiteral("suono si/1.wav")}));
            // The task is done: a click does nothing, right or wrong.
            ClickOnPart(form.ShockwaveFlash1, 2);
            ClickOnPart(form.ShockwaveFlash2, 5);
            QCOMPARE(player.Host.TakeEvents(), QStringList());
        }
    }

    void aWrongClickLeavesBothFigures()
    {
        Player player;
        player.Host.Expect(Task(RedRoof));
        auto &form = player.Open<FormEs3>();
        const QString one = form.ShockwaveFlash1.Shown();
        player.Host.TakeEvents();
        player.Host.Expect({{4, 1}, {4, 1}});
        ClickOnPart(form.ShockwaveFlash1, 3);
        QCOMPARE(player.Host.TakeEvents(),
                 QStringList({QStringLiteral("suono no/2.wav"),
                              QStringLiteral("StatusBar1.Panels(2)=1 Errati")}));
        ClickOnPart(form.ShockwaveFlash2, 4);
        QCOMPARE(Errati, int16_t{2});
        // There is no end to the misses.
        SuoniAttivi = false;
        for (int miss = 0; miss < 20; ++miss)
            ClickOnPart(form.ShockwaveFlash2, 4);
        QCOMPARE(Errati, int16_t{22});
        QCOMPARE(form.ShockwaveFlash1.Shown(), one);
        QVERIFY(form.ShockwaveFlash2.Shown().contains(QStringLiteral("tetto FF0000")));
    }

    void aQuickSecondPressOnAFigureCounts()
    {
        for (const bool systemPointer : {false, true}) {
            Player player;
            SuoniAttivi = false;
            DisabilitaMousePersonalizzato = systemPointer; // frames 2 and 3
            player.Host.Expect(Task(RedRoof));
            auto &form = player.Open<FormEs3>();
            constexpr int Walls = 3;
            for (const MovieControl *figure : {&form.ShockwaveFlash1, &form.ShockwaveFlash2})
                ClickTwiceQuickly(*figure, PlaceOfPart(*figure, Walls));
            QCOMPARE(Errati, int16_t{4});
        }
    }

    void smokeOnOneFigureOnlyGoesOrComes()
    {
        Player player;
        SuoniAttivi = false;
        player.Host.Expect(Task({{8, 6}, {2, 0}, {2, 1}}));
        auto &form = player.Open<FormEs3>();
        QVERIFY(form.ShockwaveFlash2.Shown().contains(QStringLiteral("fumo 1")));
        // The first house has no smoke to click, and neither house has clouds.
        ClickOnPart(form.ShockwaveFlash1, 7);
        ClickOnPart(form.ShockwaveFlash1, 8);
        ClickOnPart(form.ShockwaveFlash2, 8);
        QCOMPARE(Esatti + Errati, 0);
        ClickOnPart(form.ShockwaveFlash2, 7);
        QVERIFY(form.ShockwaveFlash2.Shown().contains(QStringLiteral("fumo 0")));
        QVERIFY(form.Command1(0).Enabled());
        player.Host.Expect(Task({{8, 6}, {2, 1}}));
        ClickOn(form.Command1(0));
        // Clicked where it is, on the second house again; the first gets what the second has.
        ClickOnPart(form.ShockwaveFlash2, 7);
        QCOMPARE(Esatti, 2);
    }

    // A movie that an artist drew may report what it likes.
    void aNumberThatIsNoPartIsAMissAndOneOutOfBoundsIsFatal()
    {
        Player player;
        SuoniAttivi = false;
        player.Host.Expect(Task(RedRoof));
        auto &form = player.Open<FormEs3>();
        for (const char *number : {"9", "0"})
            form.ShockwaveFlash1.OnFSCommand(QLatin1String(number), QString());
        QCOMPARE(Errati, int16_t{2});
        for (const char *number : {"10", "-1"}) {
            player.Host.FatalNumber = 0;
            Guarded([&] { form.ShockwaveFlash2.OnFSCommand(QLatin1String(number), QString()); });
            QCOMPARE(player.Host.FatalNumber, 9);
        }
    }

    void anErrorInTheColouringLeavesTheTaskAsFarAsItWasBuilt()
    {
        Player player;
        SuoniAttivi = false;
        // The roof is to differ, and its colour cannot be drawn.
        player.Host.Expect(Task({{8, 1}, {4, 70000}}));
        auto &form = player.Open<FormEs3>();
        QCOMPARE(form.MousePointer(), platform::MousePointer::Hourglass);
        QVERIFY(!IsPainted(form.ShockwaveFlash1.Shown()));
        QVERIFY(!IsPainted(form.ShockwaveFlash2.Shown()));
        QVERIFY(!form.Command1(0).Enabled());
        ClickOnPart(form.ShockwaveFlash1, 2);
        QCOMPARE(Esatti, 1);
        QVERIFY(form.Command1(0).Enabled());
        player.Host.Expect(Task(RedRoof));
        ClickOn(form.Command1(0));
        QCOMPARE(form.MousePointer(), platform::MousePointer::Default);
        QVERIFY(IsPainted(form.ShockwaveFlash1.Shown()));
    }

    void byPointerARepairedPartGoesOnBeingRight()
    {
        Player player;
        SuoniAttivi = false;
        player.Host.Expect(Task(RedRoof));
        auto &form = player.Open<FormEs3>();
        player.Host.Expect(Task({{8, 1}, {4, 1}, {8, 1}, {8, 0}, {4, 1}}));
        ChooseLevel(form, 2);
        QCOMPARE(DifferencesShown(form), QList<int>({1, 2}));
        ClickOnPart(form.ShockwaveFlash1, 2);
        ClickOnPart(form.ShockwaveFlash1, 2);
        QCOMPARE(Esatti, 2);
        QVERIFY(form.Command1(0).Enabled());
        QCOMPARE(DifferencesShown(form), QList<int>{1});
    }

    void theButtonsAnswerTheMouseInEveryMode()
    {
        for (const int mode : {0, 1, 2, 3}) {
            Player player;
            SuoniAttivi = false;
            ModoInput = static_cast<int16_t>(mode);
            player.Host.Seed(2);
            auto &form = player.Open<FormEs3>();
            ClickOn(form.Command1(1));
            QVERIFY(form.Pannello.Visible());
            QVERIFY(form.Label1.Caption().startsWith(QStringLiteral("Guarda le due morlene.")));
            QCOMPARE(form.Label1.Caption().contains(QStringLiteral("Clicca")), mode == 0);
            ClickOn(form.Label1);
            QVERIFY(!form.Pannello.Visible());
            if (mode == 0)
                for (int part = 1; part <= 8; ++part)
                    if (form.ParteDiversa(part) == 1)
                        ClickOnDifference(form, part, true);
            player.Host.TakeEvents();
            ClickOn(form.Command1(0));
            // In scanning it stays disabled, and only its colour tells.
            QCOMPARE(player.Host.TakeEvents().contains(QStringLiteral("FormEs3.MousePointer=11")),
                     mode == 0);
        }
    }

    void theInstructionIsInThePlayersCapitals()
    {
        Player player;
        TipoCarattere = QStringLiteral("maiuscolo");
        player.Host.Seed(2);
        QVERIFY(player.Open<FormEs3>().Label1.Caption().startsWith(
            QStringLiteral("GUARDA LE DUE MORLENE.")));
    }

    void theTaskGoesOnBehindTheInstruction()
    {
        Player player;
        SuoniAttivi = false;
        player.Host.Expect(Task(RedRoof));
        auto &form = player.Open<FormEs3>();
        form.ShockwaveFlash1.BringToFront();
        ClickOn(form.Command1(1));
        // It stands before the houses, whichever came to the front before.
        const QPoint middle = form.Pannello.Widget()->geometry().center();
        const QWidget *seen = form.Client()->childAt(middle);
        QVERIFY(seen == form.Label1.Widget() || form.Pannello.Widget()->isAncestorOf(seen));
        ClickOnPart(form.ShockwaveFlash1, 2);
        QCOMPARE(Esatti, 1);
        QVERIFY(form.Command1(0).Enabled());
        QVERIFY(form.Pannello.Visible());
    }

    void eachLevelIsFairToTheChild_data() { RowsOfLevels(4); }

    void eachLevelIsFairToTheChild()
    {
        QFETCH(int, level);
        Player player;
        auto &form = player.OpenForManyTasks<FormEs3>(level, 257);
        for (int task = 0; task < FairTasks; ++task) {
            const QList<int> differ = DifferencesShown(form);
            QCOMPARE(differ.size(), level);
            const int right = Esatti;
            int errors = Errati;
            for (int part = 1; part <= PartiDipinte; ++part)
                if (!differ.contains(part)) {
                    ClickOnPart(form.ShockwaveFlash1, part);
                    QCOMPARE(Errati, ++errors);
                    break;
                }
            for (const int part : differ)
                ClickOnDifference(form, part, task % 2 == 0);
            QCOMPARE(Esatti, right + level);
            QVERIFY(DifferencesShown(form).isEmpty());
            QVERIFY(form.Command1(0).Enabled());
            Errati = 0;
            ClickOn(form.Command1(0));
            player.Host.TakeEvents();
        }
    }
};

MORLENE_TEST(TestFormEs3)
#include "test_form_es3.moc"
