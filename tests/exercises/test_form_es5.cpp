// "Insiemi": the series, its two sets, and what ends it.
#include "exercises/form_es5.h"

#include "exercises/sets_fixture.h"
#include "support/hands.h"
#include "support/registered_tests.h"

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
