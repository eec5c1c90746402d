// "Colora la morlena": painting by pointer and by scanning, the two checks, and what closes a part.
#include "exercises/form_es4.h"

#include "support/exercise_fixture.h"
#include "support/fair_tasks.h"
#include "support/hands.h"
#include "support/registered_tests.h"
#include "support/sentence_reader.h"

#include <QImage>
#include <QPixmap>
#include <QTest>

using namespace platform;

namespace {

const QStringList Parts = {QString(),
                           QStringLiteral("comignolo"),
                           QStringLiteral("tetto"),
                           QStringLiteral("pareti"),
                           QStringLiteral("finestre"),
                           QStringLiteral("porta"),
                           QStringLiteral("gradino")};

// Smoke and clouds absent, then the colour of each part's sentence.
QList<ScriptedDraw> Task(const QList<int> &colours)
{
    QList<ScriptedDraw> draws = {{2, 0}, {2, 0}};
    for (const int colour : colours)
        draws << ScriptedDraw{4, colour - 1};
    return draws;
}

const QList<int> AllGreen = {1, 1, 1, 1, 1, 1};

// Which part of 6 comes next, as drawn.
QList<ScriptedDraw> Order(const QList<int> &parts)
{
    QList<ScriptedDraw> draws;
    for (const int part : parts)
        draws << ScriptedDraw{6, part - 1};
    return draws;
}

void Click(const FormEs4 &form, int part)
{
    ClickOnPart(form.ShockwaveFlash1, part);
}

// Clicks until the part has the colour, one of four.
void Paint(const FormEs4 &form, int part, int colour)
{
    while (form.Colorati(part) != colour)
        Click(form, part);
}

QString ColourShown(const FormEs4 &form, int part)
{
    return PartsOf(form.ShockwaveFlash1.Shown()).value(Parts.at(part));
}

} // namespace

class TestFormEs4 : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theHouseStartsGreyWithOneSentence()
    {
        Player player;
        Colori(0, 0) = QStringLiteral("ABCDEF");
        player.Host.Expect(Task({1, 2, 3, 4, 1, 2}) + Order({2}));
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
        player.Host.Expect(Task(AllGreen) + Order({2}));
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
            player.Host.Expect(Task(AllGreen) + Order({2}));
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
        player.Host.Expect(Task(AllGreen) + Order({2}));
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
        player.Host.Expect(Task(AllGreen) + Order({2}));
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
        player.Host.Expect(Task({2, 1, 1, 1, 1, 1}) + Order({2}));
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
        player.Host.Expect(Task(AllGreen) + Order({1}));
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
        player.Host.Expect(Task(AllGreen) + Order({5}));
        ClickOn(form.Command1(1));
        QCOMPARE(form.Text1.Text(), QStringLiteral("La porta è verde."));
        QCOMPARE(form.Colorati(1), int16_t{0});
        QCOMPARE(form.ColoreCorrente, int16_t{0});
    }

    void aNegativeSentenceAcceptsTheThreeOtherColours()
    {
        Player player;
        SuoniAttivi = false;
        player.Host.Expect(Task(AllGreen) + Order({1}));
        auto &form = player.Open<FormEs4>();
        player.Host.Expect(Task({4, 4, 4, 4, 4, 4}) + Order({4}));
        ChooseLevel(form, 2);
        QCOMPARE(form.Text1.Text(), QStringLiteral("Le finestre non sono gialle."));
        for (int colour = 1; colour <= 4; ++colour)
            QCOMPARE(form.Soluzioni(colour, 4), colour != 4);
        // On level 3 each part draws by itself which kind it gets: 1 denies.
        QList<ScriptedDraw> mixed = {{2, 0}, {2, 0}};
        for (int part = 1; part <= 6; ++part)
            mixed << ScriptedDraw{2, part % 2} << ScriptedDraw{4, 0};
        player.Host.Expect(mixed + Order({5}));
        ChooseLevel(form, 3);
        QCOMPARE(form.Text1.Text(), QStringLiteral("La porta non è verde."));
        QVERIFY(!form.Soluzioni(1, 5));
        QVERIFY(form.Soluzioni(1, 6));
        QVERIFY(!form.Soluzioni(2, 6));
    }

    void allSentencesTogetherStandInRandomOrderAndAreCheckedTogether()
    {
        Player player;
        player.Host.Expect(Task(AllGreen) + Order({1}));
        auto &form = player.Open<FormEs4>();
        player.Host.Expect(Task({1, 2, 3, 4, 1, 2}) + Order({6, 1, 1, 2, 5, 3, 4}));
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
        player.Host.Expect(Task(AllGreen) + Order({1}));
        auto &form = player.Open<FormEs4>();
        player.Host.Expect(Task(AllGreen) + Order({1, 2, 3, 4, 5, 6}));
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

    void scanningMarksThePartAndChangesItsColour_data() { RowsOfModes({1, 2, 3}); }

    void scanningMarksThePartAndChangesItsColour()
    {
        QFETCH(int, mode);
        Player player;
        ModoInput = static_cast<int16_t>(mode);
        ColorePulsantiSelezionati = 0x00AABBCC;
        player.Host.Expect(Task({2, 2, 2, 2, 2, 2}) + Order({2}));
        auto &form = player.Open<FormEs4>();
        const auto step = [&] { Step(player.Host, form); };
        const auto choose = [&] { Choose(form); };
        QVERIFY(player.Host.Events.contains(
            QStringLiteral("ShockwaveFlash1.SetVariable=QualeOggetto tetto.contorno")));
        QVERIFY(player.Host.Events.contains(
            QStringLiteral("ShockwaveFlash1.SetVariable=TestoColore.QualeColore CCBBAA")));
        QCOMPARE(form.Command1(0).BackColor(), Color{0x00AABBCC});
        // Nothing is painted yet: nothing to choose.
        player.Host.TakeEvents();
        choose();
        QVERIFY(
            !player.Host.TakeEvents().contains(QStringLiteral("StatusBar1.Panels(2)=1 Errati")));
        QCOMPARE(Esatti + Errati, 0);
        step();
        QCOMPARE(ColourShown(form, 2), QStringLiteral("00FF00"));
        player.Host.Expect({{4, 0}});
        choose();
        QCOMPARE(Errati, int16_t{1});
        step();
        QCOMPARE(ColourShown(form, 2), QStringLiteral("FF0000"));
        player.Host.TakeEvents();
        player.Host.Expect({{6, 0}});
        player.Host.Expect(Order({4}));
        choose();
        QStringList events = player.Host.TakeEvents();
        // The switch freezes the colour and lets it go on.
        events.removeIf(
            [](const QString &event) { return event.startsWith(QStringLiteral("Timer1.")); });
        QCOMPARE(
            events,
            QStringList(
                {QStringLiteral("StatusBar1.Panels(1)=1 Esatti"), QStringLiteral("suono si/1.wav"),
                 QStringLiteral("ShockwaveFlash1.SetVariable=QualeOggetto tetto.contorno"),
                 QStringLiteral("ShockwaveFlash1.SetVariable=TestoColore.QualeColore 000000"),
                 QStringLiteral("Text1.Text=Le finestre sono rosse."),
                 QStringLiteral("ShockwaveFlash1.SetVariable=QualeOggetto finestre.contorno"),
                 QStringLiteral("ShockwaveFlash1.SetVariable=TestoColore.QualeColore CCBBAA")}));
        // The colour goes on from where it was.
        step();
        QCOMPARE(ColourShown(form, 4), QStringLiteral("0000FF"));
    }

    void thereIsNoWayBackward()
    {
        Player player;
        ModoInput = 3;
        player.Host.Expect(Task(AllGreen) + Order({2}));
        auto &form = player.Open<FormEs4>();
        const QStringList colours = {QStringLiteral("00FF00"), QStringLiteral("FF0000"),
                                     QStringLiteral("0000FF"), QStringLiteral("FFFF00"),
                                     QStringLiteral("00FF00")};
        const QList<Qt::Key> keys = {Qt::Key_Left, Qt::Key_Up, Qt::Key_Down, Qt::Key_Right,
                                     Qt::Key_Left};
        for (qsizetype i = 0; i < keys.size(); ++i) {
            PressAndRelease(form.PictureScansioneManuale, keys.at(i));
            QCOMPARE(ColourShown(form, 2), colours.at(i));
        }
    }

    void aTaskDoneByScanningWaitsForTheChild_data() { RowsOfLevels(6); }

    void aTaskDoneByScanningWaitsForTheChild()
    {
        QFETCH(int, level);
        Player player;
        SuoniAttivi = false;
        ModoInput = 2;
        player.Host.Seed(3);
        auto &form = player.Open<FormEs4>();
        ChooseLevel(form, level);
        for (int part = 1; part <= 6; ++part) {
            QCOMPARE(Esatti, part - 1);
            do
                player.Host.Advance(1000);
            while (!form.Soluzioni(form.Colorati(form.QualeParte), form.QualeParte));
            PressAndRelease(form.PictureScansioneAutomatica, Qt::Key_Space);
        }
        QCOMPARE(Esatti, 6);
        QCOMPARE(form.ColoreCorrente, int16_t{99});
        QCOMPARE(form.Command1(0).BackColor(), ToColor(ColoreBottoni));
        QCOMPARE(form.Command1(1).BackColor(), ToColor(ColorePulsantiSelezionati));
        // On the high levels the buttons stay as they were.
        QCOMPARE(form.Command1(1).Enabled(), level <= 3);
        player.Host.Advance(5000);
        QCOMPARE(form.ColoreCorrente, int16_t{99});
        PressAndRelease(form.PictureScansioneAutomatica, Qt::Key_Space);
        QCOMPARE(form.ColoreCorrente, int16_t{0});
        QCOMPARE(form.Command1(0).BackColor(), ToColor(ColorePulsantiSelezionati));
        QCOMPARE(form.Command1(1).BackColor(), ToColor(ColoreBottoni));
        QCOMPARE(Esatti, 6);
    }

    // A child that changes its mind in mid-task, or is given another level.
    void aLevelChosenInMidTaskLeavesOneOutlineLit_data() { RowsOfModes({1, 2, 3}); }
    void aLevelChosenInMidTaskLeavesOneOutlineLit()
    {
        QFETCH(int, mode);
        Player player;
        SuoniAttivi = false;
        ModoInput = static_cast<int16_t>(mode);
        ColorePulsantiSelezionati = 0x00FF00FF;
        player.Host.Expect(Task(AllGreen) + Order({5}));
        auto &form = player.Open<FormEs4>();
        const auto seen = [&] { return form.ShockwaveFlash1.Widget()->grab().toImage(); };
        const QImage door = seen();
        player.Host.Expect(Task(AllGreen) + Order({2}));
        ChooseLevel(form, 1);
        const QImage roof = seen();
        QVERIFY(roof != door);
        // Back at the first part the house looks as at first, and so it does on a high level.
        player.Host.Expect(Task(AllGreen) + Order({5}));
        ChooseLevel(form, 1);
        QVERIFY(seen() == door);
        player.Host.Expect(Task(AllGreen) + Order({1, 2, 3, 4, 5, 6, 2}));
        ChooseLevel(form, 4);
        QVERIFY(seen() == roof);
        player.Host.Expect(Task(AllGreen) + Order({1, 2, 3, 4, 5, 6, 5}));
        ChooseLevel(form, 5);
        QVERIFY(seen() == door);
    }

    void aQuickSecondCheckCountsLikeTheFirst()
    {
        Player player;
        SuoniAttivi = false;
        player.Host.Expect(Task(AllGreen) + Order({2}));
        auto &form = player.Open<FormEs4>();
        Paint(form, 2, 3);
        ClickTwiceQuickly(form.Command1(0));
        QCOMPARE(Errati, int16_t{2});
    }

    void aMessageThatIsNoPaintedPartMovesNothing()
    {
        Player player;
        player.Host.Expect(Task(AllGreen) + Order({2}));
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

    void capitalsAreWrittenAndSmallLettersAreLeftAsTheyAre()
    {
        Player player;
        SuoniAttivi = false;
        TipoCarattere = QStringLiteral("maiuscolo");
        player.Host.Expect(Task(AllGreen) + Order({2}));
        auto &form = player.Open<FormEs4>();
        QCOMPARE(form.Text1.Text(), QStringLiteral("IL TETTO È VERDE."));
        TipoCarattere = QStringLiteral("minuscolo");
        Colori(1, 1) = QStringLiteral("verde Nilo");
        player.Host.Expect(Task(AllGreen) + Order({2}));
        ChooseLevel(form, 1);
        QCOMPARE(form.Text1.Text(), QStringLiteral("Il tetto è verde Nilo."));
    }

    void theSentencesTakeNoKeyboardAndAreNotTyped()
    {
        Player player;
        player.Host.Seed(3);
        auto &form = player.Open<FormEs4>();
        const QString before = form.Text1.Text();
        QTest::keyClick(form.Text1.Widget(), Qt::Key_A);
        QCOMPARE(form.Text1.Text(), before);
        QVERIFY(!form.Text1.HasFocus());
    }

    // The child paints what the sentence says, or for once what it does not say.
    void eachLevelIsFairToTheChild_data() { RowsOfLevels(6); }

    void eachLevelIsFairToTheChild()
    {
        QFETCH(int, level);
        Player player;
        auto &form = player.OpenForManyTasks<FormEs4>(level, 31337);
        const auto partOf = [](const QString &sentence) {
            for (int part = 1; part <= 6; ++part)
                if (sentence.contains(Parts.at(part)))
                    return part;
            return 0;
        };
        const auto holds = [&](const QString &sentence) {
            return SentenceIsTrue(sentence, form.ShockwaveFlash1.Shown());
        };
        int wrongOnes = 0;
        for (int task = 0; task < FairTasks; ++task) {
            const int sentences = level <= 3 ? 6 : 1;
            for (int turn = 0; turn < sentences; ++turn) {
                const QStringList shown =
                    form.Text1.Text().split(QStringLiteral("\r\n"), Qt::SkipEmptyParts);
                QCOMPARE(shown.size(), level <= 3 ? 1 : 6);
                const QString &first = shown.first();
                for (const QString &sentence : shown)
                    do
                        Click(form, partOf(sentence));
                    while (!holds(sentence));
                if ((task + turn) % 5 == 0) {
                    // One part is made wrong on purpose, and the rest is right.
                    do
                        Click(form, partOf(first));
                    while (holds(first));
                    const int errors = Errati;
                    ClickOn(form.Command1(0));
                    QVERIFY2(Errati == errors + 1, qPrintable(first));
                    ++wrongOnes;
                    do
                        Click(form, partOf(first));
                    while (!holds(first));
                }
                const int right = Esatti;
                const int errors = Errati;
                ClickOn(form.Command1(0));
                QVERIFY2(Esatti == right + (level <= 3 ? 1 : 6) && Errati == errors,
                         qPrintable(first));
                player.Host.TakeEvents();
            }
            Errati = 0;
            ClickOn(form.Command1(1));
            player.Host.TakeEvents();
        }
        qInfo("%d tasks painted, %d parts made wrong on purpose", FairTasks, wrongOnes);
    }
};

MORLENE_TEST(TestFormEs4)
#include "test_form_es4.moc"
