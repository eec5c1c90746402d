// "Insiemi": the series, its two sets, and what ends it.
#include "exercises/form_es5.h"

#include "exercises/sets_fixture.h"
#include "support/hands.h"
#include "support/registered_tests.h"

#include <QImage>
#include <QPixmap>
#include <QTest>

using namespace platform;

class TestFormEs5 : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theSeriesStartsWithEmptySets()
    {
        Player player;
        player.Host.Expect(RedRoof());
        auto &form = player.Open<FormEs5>();
        QCOMPARE(form.Label1.Caption(), QStringLiteral("Il tetto è rosso."));
        QVERIFY(form.ShockwaveFlash1.Shown().contains(QStringLiteral("tetto FF0000")));
        for (int i = 0; i < 10; ++i) {
            QVERIFY(!form.ShockwaveFlash2(i).Visible());
            QVERIFY(!form.ShockwaveFlash3(i).Visible());
        }
        QVERIFY(form.ShockwaveFlash1.Visible());
        QVERIFY(!form.Command1(2).Enabled());
        QVERIFY(!player.Host.DrawsLeft());
    }

    void theFiguresAreOpenedInTheirOrderAndGoToNoFrame()
    {
        Player player;
        player.Host.Expect(RedRoof());
        player.Open<FormEs5>();
        QStringList opened;
        QStringList expected = {QStringLiteral("ShockwaveFlash1")};
        const QStringList events = player.Host.TakeEvents();
        for (const QString &event : events.filter(QStringLiteral(".Movie=")))
            opened << event.section(QLatin1Char('.'), 0, 0);
        for (int i = 0; i < 10; ++i)
            expected << QStringLiteral("ShockwaveFlash2(%1)").arg(i)
                     << QStringLiteral("ShockwaveFlash3(%1)").arg(i);
        QCOMPARE(opened, expected);
        QVERIFY(events.filter(QStringLiteral("GotoFrame")).isEmpty());
    }

    void theButtonsKeepTheirPictures()
    {
        Player player;
        player.Host.Expect(RedRoof());
        auto &form = player.Open<FormEs5>();
        for (Button &button : form.Command1) {
            const QImage dressed = button.Widget()->grab().toImage();
            button.SetPicture({});
            QVERIFY(button.Widget()->grab().toImage() != dressed);
            QCOMPARE(button.Caption(), QString());
        }
    }

    void aSeriesTakesItsStepsInOrder()
    {
        Player player;
        SuoniAttivi = false;
        PassaggioLivelli = true;
        player.Host.Seed(2);
        auto &form = player.Open<FormEs5>();
        while (!form.Command1(2).Enabled())
            ClickOn(form.Command1(form.IndiceEsatto));
        Esatti = 20;
        player.Host.TakeEvents();
        player.Host.RecordsDraws = true;
        // "The roof is blue and there is smoke", which holds.
        player.Host.Expect(QList<ScriptedDraw>{{8, 1}, {4, 2}, {8, 6}, {2, 1}} +
                           Figure(0, AllGreen, 0, 0));
        ClickOn(form.Command1(2));
        QStringList expected = {QStringLiteral("StatusBar1.Panels(1)=0 Esatti"),
                                QStringLiteral("StatusBar1.Panels(2)=0 Errati"),
                                QStringLiteral("StatusBar1.Panels(3)=2 Livello")};
        for (int i = 0; i < 10; ++i)
            expected << QStringLiteral("ShockwaveFlash2(%1).Visible=False").arg(i)
                     << QStringLiteral("ShockwaveFlash3(%1).Visible=False").arg(i);
        expected << QStringLiteral("Command1(0).Enabled=True")
                 << QStringLiteral("Command1(1).Enabled=True")
                 << QStringLiteral("Command1(2).Enabled=False") << QStringLiteral("estratto 1 di 8")
                 << QStringLiteral("estratto 2 di 4") << QStringLiteral("estratto 6 di 8")
                 << QStringLiteral("estratto 1 di 2")
                 << QStringLiteral("Label1.Caption=Il tetto è blu e c'è il fumo.")
                 << QStringLiteral("FormEs5.MousePointer=11")
                 << QStringLiteral("estratto 50 di 100");
        const QStringList steps = player.Host.TakeEvents();
        QCOMPARE(steps.mid(0, expected.size()), expected);
        QCOMPARE(steps.mid(steps.size() - 4),
                 QStringList({QStringLiteral("ShockwaveFlash1.TSetProperty=fumo 7 1"),
                              QStringLiteral("ShockwaveFlash1.TSetProperty=nuvole 7 0"),
                              QStringLiteral("FormEs5.MousePointer=0"),
                              QStringLiteral("ShockwaveFlash1.Visible=True")}));
        QVERIFY(!player.Host.DrawsLeft());
    }

    void aRightAnswerTakesItsStepsInOrder()
    {
        Player player;
        player.Host.Expect(RedRoof());
        auto &form = player.Open<FormEs5>();
        player.Host.TakeEvents();
        player.Host.Expect({{6, 1}});
        player.Host.Expect(Figure(1, AllGreen, 0, 0));
        ClickOn(form.Command1(0));
        QStringList kept;
        for (const QString &event : player.Host.TakeEvents())
            if (!event.contains(QStringLiteral("SetVariable")) &&
                !event.contains(QStringLiteral("TSetProperty")))
                kept << event;
        QCOMPARE(kept, QStringList({QStringLiteral("StatusBar1.Panels(1)=1 Esatti"),
                                    QStringLiteral("FormEs5.MousePointer=11"),
                                    QStringLiteral("ShockwaveFlash2(0).BGColor=FFFFCC"),
                                    QStringLiteral("ShockwaveFlash2(0).Visible=True"),
                                    QStringLiteral("FormEs5.MousePointer=0"),
                                    QStringLiteral("suono si/2.wav"),
                                    QStringLiteral("FormEs5.MousePointer=11"),
                                    QStringLiteral("ShockwaveFlash1.BGColor=FFFFCC"),
                                    QStringLiteral("FormEs5.MousePointer=0")}));
        QVERIFY(form.ShockwaveFlash2(0).Shown().contains(QStringLiteral("tetto FF0000")));
        QCOMPARE(form.NumeroSi, int16_t{1});
        player.Host.Expect({{6, 1}});
        player.Host.Expect(Figure(0, AllGreen, 0, 0));
        ClickOn(form.Command1(1));
        QVERIFY(form.ShockwaveFlash3(0).Visible());
        QCOMPARE(form.NumeroNo, int16_t{1});
    }

    void aWrongAnswerMovesNoFigure()
    {
        Player player;
        player.Host.Expect(RedRoof());
        auto &form = player.Open<FormEs5>();
        const QString figure = form.ShockwaveFlash1.Shown();
        player.Host.TakeEvents();
        player.Host.Expect({{4, 2}});
        ClickOn(form.Command1(1));
        QCOMPARE(player.Host.TakeEvents(),
                 QStringList({QStringLiteral("suono no/3.wav"),
                              QStringLiteral("StatusBar1.Panels(2)=1 Errati")}));
        QCOMPARE(form.ShockwaveFlash1.Shown(), figure);
        QCOMPARE(form.NumeroNo, int16_t{0});
    }

    void theSeriesEndsWhenOneSetIsFull()
    {
        Player player;
        SuoniAttivi = false;
        player.Host.Expect(RedRoof());
        auto &form = player.Open<FormEs5>();
        for (int i = 0; i < 9; ++i) {
            player.Host.Expect(Figure(0, AllGreen, 0, 0));
            ClickOn(form.Command1(0));
        }
        player.Host.TakeEvents();
        ClickOn(form.Command1(0));
        const QStringList events = player.Host.TakeEvents();
        QCOMPARE(events.mid(events.size() - 4),
                 QStringList({QStringLiteral("Command1(0).Enabled=False"),
                              QStringLiteral("Command1(1).Enabled=False"),
                              QStringLiteral("Command1(2).Enabled=True"),
                              QStringLiteral("ShockwaveFlash1.Visible=False")}));
        QVERIFY(form.ShockwaveFlash2(9).Visible());
        QCOMPARE(Esatti, 10);
        player.Host.Expect(QList<ScriptedDraw>{{8, 6}, {2, 0}} + Figure(1, AllGreen, 0, 0) +
                           QList<ScriptedDraw>{{2, 0}, {2, 1}});
        ClickOn(form.Command1(2));
        // Smoke with value 0 at the outcome "fails": redrawn until it is there.
        QCOMPARE(form.Label1.Caption(), QStringLiteral("Non c'è il fumo."));
        QVERIFY(form.ShockwaveFlash1.Shown().contains(QStringLiteral("fumo 1")));
        QVERIFY(!form.ShockwaveFlash2(0).Visible());
        QVERIFY(!player.Host.DrawsLeft());
    }

    void tenNoEndTheSeriesToo_data() { RowsOfModes({0, 1, 2, 3}); }
    void tenNoEndTheSeriesToo()
    {
        QFETCH(int, mode);
        Player player;
        SuoniAttivi = false;
        ModoInput = static_cast<int16_t>(mode);
        // "The roof is red" of a green one, nine times more.
        player.Host.Expect(QList<ScriptedDraw>{{8, 1}, {4, 1}} + Figure(1, AllGreen, 0, 0));
        auto &form = player.Open<FormEs5>();
        if (mode != 0)
            Step(player.Host, form);
        const auto no = [&] {
            if (mode == 0)
                ClickOn(form.Command1(1));
            else
                Choose(form);
        };
        for (int figure = 1; figure <= 9; ++figure) {
            player.Host.Expect(Figure(1, AllGreen, 0, 0));
            no();
            QVERIFY(form.ShockwaveFlash3(figure - 1).Visible());
            QVERIFY(form.ShockwaveFlash1.Visible());
        }
        no();
        QCOMPARE(Esatti, 10);
        QVERIFY(form.ShockwaveFlash3(9).Visible());
        QVERIFY(!form.ShockwaveFlash2(0).Visible());
        QVERIFY(!form.ShockwaveFlash1.Visible());
        QVERIFY(form.Command1(2).Enabled());
        QVERIFY(!form.Command1(0).Enabled());
        QVERIFY(!form.Command1(1).Enabled());
        const Color lit = ToColor(ColorePulsantiSelezionati);
        QCOMPARE(form.Command1(2).BackColor() == lit, mode != 0);
        QVERIFY(form.Command1(1).BackColor() != lit);
        player.Host.Advance(5000);
        player.Host.Expect(RedRoof());
        if (mode == 0)
            ClickOn(form.Command1(2));
        else
            no();
        QVERIFY(form.ShockwaveFlash1.Visible());
        QVERIFY(!form.ShockwaveFlash3(0).Visible());
        QCOMPARE(form.Command1(0).BackColor() == lit, mode != 0);
        QCOMPARE(Esatti, 10);
    }

    void aSeriesTakesNineteenRightAnswersAtMost()
    {
        Player player;
        SuoniAttivi = false;
        player.Host.Expect(RedRoof());
        auto &form = player.Open<FormEs5>();
        // One into each set by turns.
        for (int answer = 1; answer <= 18; ++answer) {
            player.Host.Expect(Figure(answer % 2, AllGreen, 0, 0));
            ClickOn(form.Command1(form.IndiceEsatto));
            QVERIFY(!form.Command1(2).Enabled());
        }
        QCOMPARE(form.NumeroSi, int16_t{9});
        QCOMPARE(form.NumeroNo, int16_t{9});
        ClickOn(form.Command1(form.IndiceEsatto));
        QCOMPARE(Esatti, 19);
        QVERIFY(form.Command1(2).Enabled());
        QVERIFY(form.ShockwaveFlash2(9).Visible());
        QVERIFY(form.ShockwaveFlash3(8).Visible());
        QVERIFY(!form.ShockwaveFlash3(9).Visible());
    }

    void aLevelChosenInMidSeriesEmptiesTheSets()
    {
        Player player;
        SuoniAttivi = false;
        player.Host.Expect(RedRoof());
        auto &form = player.Open<FormEs5>();
        for (const int outcome : {1, 0}) {
            player.Host.Expect(Figure(outcome, AllGreen, 0, 0));
            ClickOn(form.Command1(form.IndiceEsatto));
        }
        player.Host.Expect(RedRoof());
        ChooseLevel(form, 1);
        QCOMPARE(EserciziEseguiti(1, 2), QStringLiteral("2"));
        QVERIFY(!form.ShockwaveFlash2(0).Visible());
        QVERIFY(!form.ShockwaveFlash3(0).Visible());
        // The next figure goes to the first place again.
        player.Host.Expect(Figure(0, AllGreen, 0, 0));
        ClickOn(form.Command1(0));
        QVERIFY(form.ShockwaveFlash2(0).Visible());
        QVERIFY(!form.ShockwaveFlash2(1).Visible());
    }

    void aSeriesTakesMissesWithoutEnd()
    {
        Player player;
        SuoniAttivi = false;
        player.Host.Expect(RedRoof());
        auto &form = player.Open<FormEs5>();
        const QString figure = form.ShockwaveFlash1.Shown();
        for (int pair = 0; pair < 20; ++pair)
            ClickTwiceQuickly(form.Command1(1));
        QCOMPARE(Errati, int16_t{40});
        QCOMPARE(form.StatusBar1.Panel(2), QStringLiteral("40 Errati"));
        QCOMPARE(form.ShockwaveFlash1.Shown(), figure);
        QVERIFY(!form.ShockwaveFlash3(0).Visible());
        QVERIFY(form.Command1(1).Enabled());
    }

    // A figure that cannot be painted is not sent, and neither is its copy.
    void anErrorInTheCopyLeavesItUnseenAndTheHourglass_data() { RowsOfModes({0, 1}); }
    void anErrorInTheCopyLeavesItUnseenAndTheHourglass()
    {
        QFETCH(int, mode);
        const int outcome = mode; // into the first set, or into the second
        Player player;
        SuoniAttivi = false;
        player.Host.Expect(RedRoof());
        auto &form = player.Open<FormEs5>();
        const QString before = form.ShockwaveFlash1.Shown();
        // Colour 10 is in nobody's table.
        player.Host.Expect(Figure(outcome, {10, 1, 1, 1, 1, 1}, 0, 0));
        ClickOn(form.Command1(0));
        QCOMPARE(form.ShockwaveFlash1.Shown(), before);
        QCOMPARE(form.MousePointer(), platform::MousePointer::Hourglass);
        player.Host.Expect(Figure(0, AllGreen, 0, 0));
        ClickOn(form.Command1(outcome));
        QCOMPARE(Esatti, 2);
        QVERIFY(!form.ShockwaveFlash2(1).Visible());
        QVERIFY(!form.ShockwaveFlash3(0).Visible());
        QCOMPARE(outcome == 0 ? form.NumeroSi : form.NumeroNo, static_cast<int16_t>(2 - outcome));
        // The next colouring puts the pointer back.
        QCOMPARE(form.MousePointer(), platform::MousePointer::Default);
        QCOMPARE(player.Host.FatalNumber, 0);
    }

    void scanningWaitsOnTheNextSeries()
    {
        Player player;
        SuoniAttivi = false;
        ModoInput = 1;
        player.Host.Expect(RedRoof());
        auto &form = player.Open<FormEs5>();
        PictureBox &target = form.PictureScansioneManuale;
        PressAndRelease(target, Qt::Key_Space);
        QCOMPARE(form.BottoneScansione, int16_t{1});
        PressAndRelease(target, Qt::Key_Space);
        for (int i = 0; i < 9; ++i) {
            player.Host.Expect(Figure(0, AllGreen, 0, 0));
            PressAndRelease(target, Qt::Key_Return);
            QCOMPARE(form.BottoneScansione, int16_t{0});
        }
        PressAndRelease(target, Qt::Key_Return);
        QCOMPARE(form.BottoneScansione, int16_t{2});
        QCOMPARE(form.Command1(0).BackColor(), ToColor(ColoreBottoni));
        QCOMPARE(form.Command1(2).BackColor(), ToColor(ColorePulsantiSelezionati));
        PressAndRelease(target, Qt::Key_Space);
        QCOMPARE(form.BottoneScansione, int16_t{2});
        player.Host.Expect(RedRoof());
        PressAndRelease(target, Qt::Key_Return);
        QCOMPARE(form.BottoneScansione, int16_t{0});
        QCOMPARE(form.Command1(0).BackColor(), ToColor(ColorePulsantiSelezionati));
    }

    void theLevelRisesAtTwentyAndOnlyBetweenSeries()
    {
        Player player;
        SuoniAttivi = false;
        PassaggioLivelli = true;
        player.Host.Seed(9);
        auto &form = player.Open<FormEs5>();
        Esatti = 19;
        while (!form.Command1(2).Enabled()) {
            ClickOn(form.Command1(form.IndiceEsatto));
            QCOMPARE(form.StatusBar1.Panel(3), QStringLiteral("1 Livello"));
        }
        QVERIFY(Esatti >= 29);
        const int score = Esatti;
        ClickOn(form.Command1(2));
        QCOMPARE(form.StatusBar1.Panel(3), QStringLiteral("2 Livello"));
        QCOMPARE(EserciziEseguiti(1, 2), QString::number(score));
    }
};

MORLENE_TEST(TestFormEs5)
#include "test_form_es5.moc"
