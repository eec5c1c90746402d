// "Uguali - 1°": differences that are named by pictures in a row.
#include "exercises/form_es8.h"

#include "exercises/differences_fixture.h"
#include "support/exercise_fixture.h"
#include "support/fair_tasks.h"
#include "support/hands.h"
#include "support/registered_tests.h"
#include "support/sentence_reader.h"

#include <QTest>

using namespace platform;

namespace {

QList<int> Framed(const FormEs8 &form)
{
    QList<int> lit;
    for (const Shape &frame : form.Shape1)
        if (frame.Visible())
            lit << frame.Index();
    return lit;
}

// Right of the last picture.
QPoint FreePlaceOnTheBar(const FormEs8 &form)
{
    const QRect last = form.Image1(7).Widget()->geometry();
    return {last.right() + 4, last.center().y()};
}

} // namespace

class TestFormEs8 : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theWindowIsDressedInItsOrder()
    {
        Player player;
        ColoriVari = false;
        DisabilitaMousePersonalizzato = true;
        player.Host.Expect(Task(RedRoof));
        player.Host.RecordsDraws = true;
        player.Open<FormEs8>();
        const QString inOrder = player.Host.TakeEvents().join(QLatin1Char('\n'));
        int last = -1;
        for (const char *step : {"PicMerlino.Visible=False",
                                 "Command1(0).MousePointer=0",
                                 "Command1(1).MousePointer=0",
                                 "Image1(7).MousePointer=0",
                                 "FormEs8.BackColor=00ffff80",
                                 "Label1.BackColor=00ffffff",
                                 "Shape1(7).Visible=False",
                                 "Command1(0).BackColor=8000000f",
                                 "Label1.Caption=Guarda",
                                 "mnuLivelli.Enabled=True",
                                 "Panels(3)=1 Livello",
                                 "Panels(1)=0 Esatti",
                                 "Panels(2)=0 Errati",
                                 "Picture1.BackColor=00ffff80",
                                 "ShockwaveFlash1.Movie=",
                                 "ShockwaveFlash2.Movie=",
                                 "Command1(0).Enabled=False",
                                 "FormEs8.MousePointer=11",
                                 "estratto 0 di 4",
                                 "estratto 0 di 2",
                                 "estratto 1 di 8",
                                 "estratto 1 di 4",
                                 "ShockwaveFlash1.BGColor=FFFFCC",
                                 "ShockwaveFlash1.SetVariable=QualeOggetto comignolo.interno",
                                 "ShockwaveFlash1.SetVariable=QualeOggetto tetto.interno",
                                 "ShockwaveFlash1.SetVariable=QualeOggetto pareti.interno",
                                 "ShockwaveFlash1.SetVariable=QualeOggetto finestre.interno",
                                 "ShockwaveFlash1.SetVariable=QualeOggetto porta.interno",
                                 "ShockwaveFlash1.SetVariable=QualeOggetto gradino.interno",
                                 "ShockwaveFlash1.TSetProperty=fumo 7 0",
                                 "ShockwaveFlash1.TSetProperty=nuvole 7 0",
                                 "ShockwaveFlash2.BGColor=FFFFCC",
                                 "ShockwaveFlash2.SetVariable=QualeOggetto tetto.interno",
                                 "ShockwaveFlash2.SetVariable=TestoColore.QualeColore FF0000",
                                 "ShockwaveFlash2.TSetProperty=nuvole 7 0",
                                 "FormEs8.MousePointer=0"}) {
            const auto at = static_cast<int>(inOrder.indexOf(QString::fromUtf8(step), last + 1));
            QVERIFY2(at > last, step);
            last = at;
        }
    }

    void theBarStandsAboveTheStatusBarInTheWindowsColour()
    {
        Player player;
        ColoriVari = false;
        player.Host.Expect(Task(RedRoof));
        auto &form = player.Open<FormEs8>();
        QCOMPARE(form.Picture1.Top(), form.StatusBar1.Top() - form.Picture1.Height() - 20);
        QCOMPARE(form.StatusBar1.Height(), 500.0);
        QCOMPARE(form.Picture1.BackColor(), form.BackColor());
        QCOMPARE(form.PictureScansioneManuale.BackColor(), form.BackColor());
        QCOMPARE(Framed(form), QList<int>());
        QVERIFY(!form.PicMerlino.Visible());
    }

    void theFrameIsFivePixelsInTheColourOfLitButtons()
    {
        Player player;
        ColorePulsantiSelezionati = 0x00AABBCC;
        player.Host.Expect(Task(RedRoof));
        auto &form = player.Open<FormEs8>();
        MoveOver(form.Image1(6));
        const QImage frame = form.Shape1(6).Widget()->grab().toImage();
        for (int x = 0; x < 6; ++x)
            QCOMPARE(frame.pixelColor(x, frame.height() / 2) == QColor(0xCC, 0xBB, 0xAA), x < 5);
    }

    void theFiguresGoToNoFrameAndTakeNoClicks()
    {
        Player player;
        player.Host.Expect(Task(RedRoof));
        auto &form = player.Open<FormEs8>();
        QVERIFY(player.Host.Events.filter(QStringLiteral("GotoFrame")).isEmpty());
        player.Host.TakeEvents();
        for (int part = 1; part <= 8; ++part) {
            ClickOnPart(form.ShockwaveFlash1, part);
            ClickOnPart(form.ShockwaveFlash2, part);
        }
        QCOMPARE(player.Host.TakeEvents(), QStringList());
    }

    void theChosenPartIsRepairedOnTheSecondFigure()
    {
        Player player;
        player.Host.Expect(Task(RedRoof));
        auto &form = player.Open<FormEs8>();
        player.Host.TakeEvents();
        player.Host.Expect({{6, 3}});
        ClickOn(form.Image1(1));
        QVERIFY(DifferencesShown(form).isEmpty());
        QVERIFY(form.ShockwaveFlash2.Shown().contains(QStringLiteral("tetto 00FF00")));
        const QStringList events = player.Host.TakeEvents();
        QCOMPARE(events.first(), QStringLiteral("ShockwaveFlash2.BGColor=FFFFCC"));
        QCOMPARE(events.mid(events.size() - 3),
                 QStringList({QStringLiteral("StatusBar1.Panels(1)=1 Esatti"),
                              QStringLiteral("Command1(0).Enabled=True"),
                              QStringLiteral("suono si/4.wav")}));
        QCOMPARE(form.PosizioneScansione, int16_t{0});
        ClickOn(form.Image1(1));
        ClickOn(form.Image1(4));
        QCOMPARE(player.Host.TakeEvents(), QStringList());
    }

    void aWrongPictureCountsAMiss()
    {
        Player player;
        player.Host.Expect(Task(RedRoof));
        auto &form = player.Open<FormEs8>();
        player.Host.TakeEvents();
        player.Host.Expect({{4, 0}});
        ClickOn(form.Image1(6));
        QCOMPARE(player.Host.TakeEvents(),
                 QStringList({QStringLiteral("suono no/1.wav"),
                              QStringLiteral("StatusBar1.Panels(2)=1 Errati")}));
    }

    void theTenthRightAnswerBringsNoReward()
    {
        Player player;
        SuoniAttivi = false;
        player.Host.Expect(Task(RedRoof));
        auto &form = player.Open<FormEs8>();
        Esatti = 9;
        player.Host.TakeEvents();
        ClickOn(form.Image1(1));
        QCOMPARE(Esatti, 10);
        QVERIFY(!form.PicMerlino.Visible());
        QVERIFY(player.Host.TakeEvents().filter(QStringLiteral("Merlino")).isEmpty());
    }

    void smokeComesAndGoesOnTheSecondFigure()
    {
        Player player;
        SuoniAttivi = false;
        player.Host.Expect(Task({{8, 6}, {2, 1}}));
        auto &form = player.Open<FormEs8>();
        ClickOn(form.Image1(6));
        QVERIFY(form.ShockwaveFlash2.Shown().contains(QStringLiteral("fumo 0")));
        player.Host.Expect(Colouring(AllGreen, 1, 1) + QList<ScriptedDraw>{{8, 7}, {2, 0}});
        ClickOn(form.Command1(0));
        ClickOn(form.Image1(7));
        QVERIFY(form.ShockwaveFlash2.Shown().contains(QStringLiteral("nuvole 1")));
        QCOMPARE(Esatti, 2);
    }

    void byPointerARepairedPartGoesOnBeingRight()
    {
        Player player;
        SuoniAttivi = false;
        player.Host.Expect(Task(RedRoof));
        auto &form = player.Open<FormEs8>();
        player.Host.Expect(Task({{8, 1}, {4, 1}, {8, 0}, {4, 1}}));
        ChooseLevel(form, 2);
        ClickTwiceQuickly(form.Image1(1));
        QCOMPARE(Esatti, 2);
        QVERIFY(form.Command1(0).Enabled());
        QCOMPARE(DifferencesShown(form), QList<int>{1});
    }

    void inScanningARepairedPartIsNoDifferenceAnyMore_data() { RowsOfModes({1, 2, 3}); }
    void inScanningARepairedPartIsNoDifferenceAnyMore()
    {
        QFETCH(int, mode);
        Player player;
        SuoniAttivi = false;
        ModoInput = static_cast<int16_t>(mode);
        player.Host.Expect(Task(RedRoof));
        auto &form = player.Open<FormEs8>();
        player.Host.Expect(Task({{8, 0}, {4, 1}, {8, 7}, {2, 1}}));
        ChooseLevel(form, 2);
        QCOMPARE(Framed(form), QList<int>{0});
        Choose(form);
        QCOMPARE(Esatti, 1);
        QCOMPARE(DifferencesShown(form), QList<int>{8});
        Choose(form);
        QCOMPARE(Esatti, 1);
        QCOMPARE(Errati, int16_t{1});
        QCOMPARE(form.StatusBar1.Panel(2), QStringLiteral("1 Errati"));
        // The task is not done: the walk goes on.
        Step(player.Host, form);
        QCOMPARE(Framed(form), QList<int>{1});
    }

    void byScanningThePanelAndTheButtonComeBeforeTheSound()
    {
        Player player;
        ModoInput = 1;
        player.Host.Expect(Task({{8, 0}, {4, 1}}));
        auto &form = player.Open<FormEs8>();
        player.Host.TakeEvents();
        player.Host.Expect({{6, 3}});
        Choose(form);
        const QStringList events = player.Host.TakeEvents();
        QCOMPARE(events.first(), QStringLiteral("ShockwaveFlash2.BGColor=FFFFCC"));
        QCOMPARE(events.mid(events.size() - 3),
                 QStringList({QStringLiteral("StatusBar1.Panels(1)=1 Esatti"),
                              QStringLiteral("Command1(0).BackColor=000000ff"),
                              QStringLiteral("suono si/4.wav")}));
        QVERIFY(!form.Command1(0).Enabled());
    }

    void aPictureRepairsTheSecondHouseWhicheverHasTheSmoke()
    {
        Player player;
        SuoniAttivi = false;
        player.Host.Expect(Colouring(AllGreen, 1, 0) + QList<ScriptedDraw>{{8, 6}, {2, 0}});
        auto &form = player.Open<FormEs8>();
        ClickOn(form.Image1(6));
        QVERIFY(form.ShockwaveFlash1.Shown().contains(QStringLiteral("fumo 1")));
        QVERIFY(form.ShockwaveFlash2.Shown().contains(QStringLiteral("fumo 1")));
    }

    void anErrorInTheColouringLeavesTheTaskAsFarAsItWasBuilt()
    {
        Player player;
        SuoniAttivi = false;
        player.Host.Expect(Task({{8, 1}, {4, 70000}}));
        auto &form = player.Open<FormEs8>();
        QCOMPARE(form.MousePointer(), platform::MousePointer::Hourglass);
        QVERIFY(!IsPainted(form.ShockwaveFlash1.Shown()));
        QVERIFY(!IsPainted(form.ShockwaveFlash2.Shown()));
        ClickOn(form.Image1(1));
        QCOMPARE(Esatti, 1);
        player.Host.Expect(Task(RedRoof));
        ClickOn(form.Command1(0));
        QCOMPARE(form.MousePointer(), platform::MousePointer::Default);
        QVERIFY(IsPainted(form.ShockwaveFlash2.Shown()));
    }

    void smokeAndCloudsMayDifferInScanningToo()
    {
        Player player;
        SuoniAttivi = false;
        ModoInput = 1;
        player.Host.Expect(Task({{8, 6}, {2, 1}}));
        auto &form = player.Open<FormEs8>();
        QCOMPARE(DifferencesShown(form), QList<int>{7});
        QVERIFY(!player.Host.DrawsLeft());
    }

    void scanningWalksEightPicturesAndThenWaits_data() { RowsOfModes({1, 2, 3}); }

    void scanningWalksEightPicturesAndThenWaits()
    {
        QFETCH(int, mode);
        Player player;
        SuoniAttivi = false;
        ModoInput = static_cast<int16_t>(mode);
        player.Host.Expect(Task({{8, 0}, {4, 1}}));
        auto &form = player.Open<FormEs8>();
        const auto step = [&] { Step(player.Host, form, Qt::Key_Down); };
        const auto choose = [&] { Choose(form); };
        QCOMPARE(Framed(form), QList<int>{0});
        for (int picture = 1; picture <= 8; ++picture) {
            step();
            QCOMPARE(Framed(form), QList<int>{picture % 8});
        }
        step();
        choose();
        QCOMPARE(Errati, int16_t{1});
        for (int rest = 0; rest < 7; ++rest)
            step();
        choose();
        QCOMPARE(Esatti, 1);
        QCOMPARE(form.PosizioneScansione, int16_t{8});
        QCOMPARE(form.Command1(0).BackColor(), ToColor(ColorePulsantiSelezionati));
        // The last frame stays lit until the next task.
        step();
        if (mode == 3)
            for (const Qt::Key back : {Qt::Key_Left, Qt::Key_Up})
                PressAndRelease(form.PictureScansioneManuale, back);
        QCOMPARE(Framed(form), QList<int>{0});
        QCOMPARE(form.PosizioneScansione, int16_t{8});
        player.Host.Expect(Task({{8, 2}, {4, 1}}));
        choose();
        QCOMPARE(form.PosizioneScansione, int16_t{0});
        QCOMPARE(form.Command1(0).BackColor(), ToColor(ColoreBottoni));
    }

    void theWalkGoesBackwardByArrows()
    {
        Player player;
        ModoInput = 3;
        player.Host.Expect(Task(RedRoof));
        auto &form = player.Open<FormEs8>();
        PressAndRelease(form.PictureScansioneManuale, Qt::Key_Left);
        QCOMPARE(Framed(form), QList<int>{7});
        PressAndRelease(form.PictureScansioneManuale, Qt::Key_Up);
        QCOMPARE(Framed(form), QList<int>{6});
    }

    void aFrameFollowsThePointer()
    {
        Player player;
        player.Host.Expect(Task(RedRoof));
        auto &form = player.Open<FormEs8>();
        MoveOver(form.Image1(3));
        QCOMPARE(Framed(form), QList<int>{3});
        MoveOver(form.Image1(4));
        QCOMPARE(Framed(form), QList<int>{4});
        MoveOver(form.Picture1, FreePlaceOnTheBar(form));
        QCOMPARE(Framed(form), QList<int>());
        MoveOver(form.Image1(0));
        MoveOver(form.Command1(1));
        QCOMPARE(form.Command1(1).BackColor(), ToColor(ColorePulsantiSelezionati));
        MoveOverWindow(form);
        QCOMPARE(Framed(form), QList<int>());
        QCOMPARE(form.Command1(1).BackColor(), ToColor(ColoreBottoni));
        ClickOn(form.Command1(1));
        MoveOver(form.Command1(1));
        MoveOver(form.Label1);
        QCOMPARE(form.Command1(1).BackColor(), ToColor(ColoreBottoni));
    }

    void overTheBarThePointerWipesTheHighlightInEveryMode_data() { RowsOfModes({1, 2, 3}); }
    void overTheBarThePointerWipesTheHighlightInEveryMode()
    {
        QFETCH(int, mode);
        Player player;
        ModoInput = static_cast<int16_t>(mode);
        player.Host.Expect(Task(RedRoof));
        auto &form = player.Open<FormEs8>();
        MoveOver(form.Image1(3));
        MoveOverWindow(form);
        QCOMPARE(Framed(form), QList<int>{0});
        MoveOver(form.Picture1, FreePlaceOnTheBar(form));
        QCOMPARE(Framed(form), QList<int>());
        Step(player.Host, form);
        QCOMPARE(Framed(form), QList<int>{1});
        ClickOn(form.Image1(1));
        QCOMPARE(Esatti + Errati, 0);
    }

    void theButtonsAnswerTheMouseInEveryMode()
    {
        for (const int mode : {0, 1, 2, 3}) {
            Player player;
            ModoInput = static_cast<int16_t>(mode);
            player.Host.Seed(2);
            auto &form = player.Open<FormEs8>();
            ClickOn(form.Command1(1));
            QVERIFY(form.Pannello.Visible());
            // Before the figures, where it can be read.
            QCOMPARE(form.Client()->childAt(form.Pannello.Widget()->geometry().center()),
                     form.Label1.Widget());
            QVERIFY(form.Label1.Caption().contains(QStringLiteral("Scegli qui sotto")));
            ClickOn(form.Label1);
            QVERIFY(!form.Pannello.Visible());
            if (mode == 0)
                for (const int part : DifferencesShown(form))
                    ClickOn(form.Image1(part - 1));
            player.Host.TakeEvents();
            ClickOn(form.Command1(0));
            // In scanning it stays disabled, and only its colour tells.
            QCOMPARE(player.Host.TakeEvents().contains(QStringLiteral("FormEs8.MousePointer=11")),
                     mode == 0);
        }
    }

    void theInstructionIsInThePlayersCapitals()
    {
        Player player;
        TipoCarattere = QStringLiteral("maiuscolo");
        player.Host.Seed(2);
        QVERIFY(
            player.Open<FormEs8>().Label1.Caption().contains(QStringLiteral("SCEGLI QUI SOTTO")));
    }

    void theHandStandsOverPicturesAndButtonsUnlessThePlayerWantsTheSystems_data()
    {
        RowsOfModes({0, 1, 2, 3});
    }
    void theHandStandsOverPicturesAndButtonsUnlessThePlayerWantsTheSystems()
    {
        QFETCH(int, mode);
        for (const bool ofTheSystem : {false, true}) {
            Player player;
            ModoInput = static_cast<int16_t>(mode);
            DisabilitaMousePersonalizzato = ofTheSystem;
            player.Host.Seed(2);
            auto &form = player.Open<FormEs8>();
            const auto hand =
                ofTheSystem ? platform::MousePointer::Default : platform::MousePointer::Custom;
            for (const Image &picture : form.Image1)
                QCOMPARE(picture.MousePointer(), hand);
            QCOMPARE(form.Command1(1).MousePointer(), hand);
            // By scanning the mouse has no next task to ask for.
            QCOMPARE(form.Command1(0).MousePointer(),
                     mode == 0 ? hand : platform::MousePointer::Default);
        }
    }

    void eachLevelIsFairToTheChild_data() { RowsOfLevels(4); }

    void eachLevelIsFairToTheChild()
    {
        QFETCH(int, level);
        Player player;
        auto &form = player.OpenForManyTasks<FormEs8>(level, 263);
        for (int task = 0; task < FairTasks; ++task) {
            const QList<int> differ = DifferencesShown(form);
            QCOMPARE(differ.size(), level);
            const int right = Esatti;
            for (int part = 1; part <= 8; ++part)
                if (!differ.contains(part)) {
                    ClickOn(form.Image1(part - 1));
                    QCOMPARE(Errati, int16_t{1});
                    break;
                }
            for (const int part : differ)
                ClickOn(form.Image1(part - 1));
            QCOMPARE(Esatti, right + level);
            QVERIFY(DifferencesShown(form).isEmpty());
            Errati = 0;
            ClickOn(form.Command1(0));
            player.Host.TakeEvents();
        }
    }
};

MORLENE_TEST(TestFormEs8)
#include "test_form_es8.moc"
