// "Colora la morlena": painting by pointer, the two checks, and what closes a part.
#include "exercises/form_es4.h"

#include "exercises/painting_fixture.h"
#include "support/registered_tests.h"

#include <QTest>

using namespace platform;

class TestFormEs4 : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theHouseStartsGreyWithOneSentence()
    {
        Player player;
        Colori(0, 0) = QStringLiteral("ABCDEF");
        player.Host.Expect(PaintingTask({1, 2, 3, 4, 1, 2}) + Order({2}));
        auto &form = player.Open<FormEs4>();
        QCOMPARE(form.ShockwaveFlash1.BGColor(), QStringLiteral("ABCDEF"));
        QCOMPARE(form.ShockwaveFlash1.Shown(),
                 QStringLiteral("comignolo CCCCCC, tetto CCCCCC, pareti CCCCCC, finestre CCCCCC, "
                                "porta CCCCCC, gradino CCCCCC, fumo 0, nuvole 0"));
        QCOMPARE(form.Text1.Text(), QStringLiteral("Il tetto è rosso."));
        QVERIFY(form.Command1(0).Enabled());
        QVERIFY(!form.Command1(1).Enabled());
        QCOMPARE(form.StatusBar1.Panel(3), QStringLiteral("1 Livello"));
        QVERIFY(!player.Host.DrawsLeft());
    }

    void smokeAndCloudsAreThereByChance_data()
    {
        QTest::addColumn<int>("smoke");
        QTest::addColumn<int>("clouds");
        QTest::newRow("smoke") << 1 << 0;
        QTest::newRow("clouds") << 0 << 1;
    }
    void smokeAndCloudsAreThereByChance()
    {
        QFETCH(int, smoke);
        QFETCH(int, clouds);
        Player player;
        QList<ScriptedDraw> draws = PaintingTask(AllGreen);
        draws[0].Value = smoke;
        draws[1].Value = clouds;
        player.Host.Expect(draws + Order({2}));
        const auto &form = player.Open<FormEs4>();
        QVERIFY(form.ShockwaveFlash1.Shown().endsWith(
            QStringLiteral("fumo %1, nuvole %2").arg(smoke).arg(clouds)));
        // Seen or not, they are not painted.
        const QString before = form.ShockwaveFlash1.Shown();
        Click(form, 7);
        Click(form, 8);
        QCOMPARE(form.ShockwaveFlash1.Shown(), before);
        QCOMPARE(form.ColoreCorrente, int16_t{0});
    }

    void withAMouseNoOutlineIsLit()
    {
        Player player;
        SuoniAttivi = false;
        player.Host.Seed(3);
        auto &form = player.Open<FormEs4>();
        for (int level = 1; level <= 6; ++level) {
            ChooseLevel(form, level);
            for (int part = 1; part <= 6; ++part)
                Click(form, part);
            ClickOn(form.Command1(0));
        }
        QCOMPARE(player.Host.TakeEvents().filter(QStringLiteral("contorno")), QStringList());
    }

    void thePartsTakeClicksOnlyWithAMouse()
    {
        for (const int mode : {0, 1, 2, 3})
            for (const bool systemPointer : {false, true}) {
                Player player;
                ModoInput = static_cast<int16_t>(mode);
                DisabilitaMousePersonalizzato = systemPointer;
                player.Host.Seed(1);
                player.Open<FormEs4>();
                const int frame = mode != 0 ? 0 : systemPointer ? 3 : 2;
                QVERIFY(player.Host.Events.contains(
                    QStringLiteral("ShockwaveFlash1.GotoFrame=%1").arg(frame)));
            }
    }

    void eachClickTakesTheNextColourAlsoOnAClosedPart()
    {
        Player player;
        SuoniAttivi = false;
        player.Host.Expect(PaintingTask(AllGreen) + Order({2}));
        auto &form = player.Open<FormEs4>();
        Click(form, 2);
        QCOMPARE(ColourShown(form, 2), QStringLiteral("00FF00"));
        Click(form, 5);
        QCOMPARE(ColourShown(form, 5), QStringLiteral("FF0000"));
        // Smoke and clouds, which are not there, take no click at all.
        Click(form, 7);
        Click(form, 8);
        Click(form, 3);
        QCOMPARE(ColourShown(form, 3), QStringLiteral("0000FF"));
        player.Host.Expect(Order({1}));
        ClickOn(form.Command1(0));
        QCOMPARE(Esatti, 1);
        // The roof is closed: a click leaves it and still moves the colour on.
        Click(form, 2);
        QCOMPARE(ColourShown(form, 2), QStringLiteral("00FF00"));
        QCOMPARE(form.ColoreCorrente, int16_t{4});
        Click(form, 1);
        QCOMPARE(ColourShown(form, 1), QStringLiteral("00FF00"));
    }

    // Clicking on through the colours is how a part is painted.
    void aQuickSecondPressOnAPartTakesTheNextColour()
    {
        for (const bool systemPointer : {false, true}) {
            Player player;
            SuoniAttivi = false;
            DisabilitaMousePersonalizzato = systemPointer; // frames 2 and 3
            player.Host.Expect(PaintingTask(AllGreen) + Order({2}));
            auto &form = player.Open<FormEs4>();
            const QPoint roof = PlaceOfPart(form.ShockwaveFlash1, 2);
            ClickTwiceQuickly(form.ShockwaveFlash1, roof);
            QCOMPARE(ColourShown(form, 2), QStringLiteral("FF0000"));
            ClickTwiceQuickly(form.ShockwaveFlash1, roof);
            QCOMPARE(ColourShown(form, 2), QStringLiteral("FFFF00"));
        }
    }

    void aRightCheckTakesItsStepsInOrder()
    {
        Player player;
        player.Host.Expect(PaintingTask(AllGreen) + Order({2}));
        auto &form = player.Open<FormEs4>();
        // Nothing is said of a part that is not painted.
        player.Host.TakeEvents();
        ClickOn(form.Command1(0));
        QCOMPARE(player.Host.TakeEvents(), QStringList());
        Click(form, 2);
        player.Host.TakeEvents();
        player.Host.Expect({{6, 1}});
        player.Host.Expect(Order({2, 3}));
        ClickOn(form.Command1(0));
        // The roof is drawn once more, and passed over.
        QCOMPARE(player.Host.TakeEvents(),
                 QStringList({QStringLiteral("StatusBar1.Panels(1)=1 Esatti"),
                              QStringLiteral("suono si/2.wav"),
                              QStringLiteral("Text1.Text=Le pareti sono verdi.")}));
        QVERIFY(!form.Soluzioni(0, 2));
    }

    void aWrongCheckKeepsThePartOpen()
    {
        Player player;
        player.Host.Expect(PaintingTask(AllGreen) + Order({2}));
        auto &form = player.Open<FormEs4>();
        Paint(form, 2, 3);
        player.Host.TakeEvents();
        player.Host.Expect({{4, 3}});
        ClickOn(form.Command1(0));
        QCOMPARE(player.Host.TakeEvents(),
                 QStringList({QStringLiteral("suono no/4.wav"),
                              QStringLiteral("StatusBar1.Panels(2)=1 Errati")}));
        QCOMPARE(form.Text1.Text(), QStringLiteral("Il tetto è verde."));
        Paint(form, 2, 1);
        QCOMPARE(ColourShown(form, 2), QStringLiteral("00FF00"));
    }

    void paintOfAnEarlierTurnCountsWhenItsSentenceComes()
    {
        Player player;
        SuoniAttivi = false;
        player.Host.Expect(PaintingTask({2, 1, 1, 1, 1, 1}) + Order({2}));
        auto &form = player.Open<FormEs4>();
        Paint(form, 1, 2);
        Paint(form, 2, 1);
        player.Host.Expect(Order({1, 3}));
        ClickOn(form.Command1(0));
        ClickOn(form.Command1(0));
        QCOMPARE(Esatti, 2);
        QCOMPARE(Errati, int16_t{0});
    }

    void afterTheSixthPartAllSentencesStandAndTheNextTaskIsOpen()
    {
        Player player;
        SuoniAttivi = false;
        player.Host.Expect(PaintingTask(AllGreen) + Order({1}));
        auto &form = player.Open<FormEs4>();
        for (int part = 1; part <= 6; ++part) {
            if (part < 6)
                player.Host.Expect(Order({part + 1}));
            Paint(form, part, 1);
            player.Host.TakeEvents();
            ClickOn(form.Command1(0));
        }
        QCOMPARE(form.Text1.Text(),
                 QStringLiteral("Il comignolo è verde.\r\nIl tetto è verde.\r\nLe pareti sono "
                                "verdi.\r\nLe finestre sono verdi.\r\nLa porta è verde.\r\nIl "
                                "gradino è verde.\r\n"));
        QVERIFY(!form.Command1(0).Enabled());
        QVERIFY(form.Command1(1).Enabled());
        QCOMPARE(Esatti, 6);
        player.Host.Expect(PaintingTask(AllGreen) + Order({5}));
        ClickOn(form.Command1(1));
        QVERIFY(form.Command1(0).Enabled());
        QVERIFY(!form.Command1(1).Enabled());
        QCOMPARE(form.Fatte, int16_t{0});
        QCOMPARE(ColourShown(form, 1), QStringLiteral("CCCCCC"));
        QCOMPARE(form.Text1.Text(), QStringLiteral("La porta è verde."));
        QCOMPARE(form.Colorati(1), int16_t{0});
        QCOMPARE(form.ColoreCorrente, int16_t{0});
    }

    void allSentencesTogetherStandInRandomOrderAndAreCheckedTogether()
    {
        Player player;
        player.Host.Expect(PaintingTask(AllGreen) + Order({1}));
        auto &form = player.Open<FormEs4>();
        player.Host.Expect(PaintingTask({1, 2, 3, 4, 1, 2}) + Order({6, 1, 1, 2, 5, 3, 4}));
        ChooseLevel(form, 4);
        QCOMPARE(form.Text1.Text(),
                 QStringLiteral("Il gradino è rosso.\r\nIl comignolo è verde.\r\nIl tetto è "
                                "rosso.\r\nLa porta è verde.\r\nLe pareti sono blu.\r\nLe "
                                "finestre sono gialle.\r\n"));
        QVERIFY(!player.Host.DrawsLeft());
        for (int part = 1; part <= 6; ++part)
            Paint(form, part, part == 2 ? 3 : (part - 1) % 4 + 1);
        player.Host.TakeEvents();
        player.Host.Expect({{4, 0}});
        ClickOn(form.Command1(0));
        QCOMPARE(player.Host.TakeEvents(),
                 QStringList({QStringLiteral("StatusBar1.Panels(2)=1 Errati"),
                              QStringLiteral("suono no/1.wav")}));
        // Right parts are closed, the wrong one is open, and each check counts anew.
        QVERIFY(!form.Soluzioni(0, 1));
        QVERIFY(form.Soluzioni(0, 2));
        player.Host.Expect({{4, 0}});
        ClickOn(form.Command1(0));
        QCOMPARE(Errati, int16_t{2});
        Paint(form, 2, 2);
        player.Host.TakeEvents();
        player.Host.Expect({{6, 5}});
        ClickOn(form.Command1(0));
        QCOMPARE(player.Host.TakeEvents(),
                 QStringList({QStringLiteral("suono si/6.wav"),
                              QStringLiteral("StatusBar1.Panels(1)=6 Esatti"),
                              QStringLiteral("Command1(1).Enabled=True"),
                              QStringLiteral("Command1(0).Enabled=False")}));
    }

    void anUnpaintedPartEndsTheCheckWithItsErrorsCounted()
    {
        Player player;
        player.Host.Expect(PaintingTask(AllGreen) + Order({1}));
        auto &form = player.Open<FormEs4>();
        player.Host.Expect(PaintingTask(AllGreen) + Order({1, 2, 3, 4, 5, 6}));
        ChooseLevel(form, 5);
        Paint(form, 1, 1); // "not green": wrong
        Paint(form, 2, 2);
        player.Host.TakeEvents();
        ClickOn(form.Command1(0));
        QCOMPARE(player.Host.TakeEvents(),
                 QStringList({QStringLiteral("StatusBar1.Panels(2)=1 Errati")}));
        QCOMPARE(form.Fatte, int16_t{0});
        QVERIFY(!form.Soluzioni(0, 2));
        QCOMPARE(Esatti, 0);
    }

    void theThirdFaultlessTaskIsFollowedByTheRise()
    {
        Player player;
        SuoniAttivi = false;
        player.Host.Seed(5);
        auto &form = player.Open<FormEs4>();
        ChooseLevel(form, 4);
        PassaggioLivelli = true;
        for (int task = 1; task <= 3; ++task) {
            QCOMPARE(form.Livello, int16_t{4});
            for (int part = 1; part <= 6; ++part)
                Paint(form, part, form.ColoreParte(part));
            ClickOn(form.Command1(0));
            QCOMPARE(Esatti, 6 * task);
            ClickOn(form.Command1(1));
        }
        QCOMPARE(form.Livello, int16_t{5});
    }

    void aQuickSecondCheckCountsLikeTheFirst()
    {
        Player player;
        SuoniAttivi = false;
        player.Host.Expect(PaintingTask(AllGreen) + Order({2}));
        auto &form = player.Open<FormEs4>();
        Paint(form, 2, 3);
        ClickTwiceQuickly(form.Command1(0));
        QCOMPARE(Errati, int16_t{2});
    }

    void aMessageThatIsNoPaintedPartMovesNothing()
    {
        Player player;
        player.Host.Expect(PaintingTask(AllGreen) + Order({2}));
        auto &form = player.Open<FormEs4>();
        player.Host.TakeEvents();
        for (const char *number : {"7", "8", "9", "99"})
            form.ShockwaveFlash1.OnFSCommand(QLatin1String(number), QString());
        QCOMPARE(player.Host.TakeEvents(), QStringList());
        Click(form, 2);
        QCOMPARE(ColourShown(form, 2), QStringLiteral("00FF00"));
    }

    void theLightGoesOutOverTheSentences()
    {
        Player player;
        player.Host.Seed(3);
        auto &form = player.Open<FormEs4>();
        MoveOver(form.Command1(0));
        QCOMPARE(form.Command1(0).BackColor(), ToColor(ColorePulsantiSelezionati));
        MoveOver(form.Text1);
        QCOMPARE(form.Command1(0).BackColor(), ToColor(ColoreBottoni));
    }
};

MORLENE_TEST(TestFormEs4)
#include "test_form_es4.moc"
