// What every exercise window does when it opens, is lit by the pointer, and is left.
#include "exercises/every_exercise.h"
#include "support/registered_tests.h"

#include <QTest>

#include <algorithm>

using namespace platform;

class TestExerciseWindow : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void itFillsTheScreenWithItsControlsAtLevelOne_data() { RowsOfExercises(); }
    void itFillsTheScreenWithItsControlsAtLevelOne()
    {
        QFETCH(int, exercise);
        Player player;
        SuoniAttivi = false;
        Esatti = 4;
        Errati = 4;
        player.Host.ScreenSizeNow = {1920, 1080};
        player.Host.Seed(3);
        const FinestraEsercizio &form = OpenExercise(player, exercise);
        QCOMPARE(QRectF(form.Left(), form.Top(), form.Width(), form.Height()),
                 QRectF(0, 0, 1920 * 15, 1080 * 15));
        QCOMPARE(form.StatusBar1.Panel(1), QStringLiteral("0 Esatti"));
        QCOMPARE(form.StatusBar1.Panel(2), QStringLiteral("0 Errati"));
        QCOMPARE(form.StatusBar1.Panel(3), QStringLiteral("1 Livello"));
        QVERIFY(!form.PicMerlino.Visible());
        // The controls have grown with it; the status bar keeps to the foot by itself.
        double right = 0;
        for (Control *control : form.Controls()) {
            const auto *seen = dynamic_cast<const VisualControl *>(control);
            if (seen == nullptr || seen == &form.StatusBar1 || !seen->Visible())
                continue;
            if (seen->Left() + seen->Width() <= form.ScaleWidth())
                right = std::max(right, seen->Left() + seen->Width());
        }
        QVERIFY(right > 0.9 * form.ScaleWidth());
    }

    void everyAnswerIsInTheSystemsPointerOnlyWhereThePlayerWantsIt_data() { RowsOfExercises(); }
    void everyAnswerIsInTheSystemsPointerOnlyWhereThePlayerWantsIt()
    {
        QFETCH(int, exercise);
        for (const bool systems : {false, true}) {
            Player player;
            SuoniAttivi = false;
            DisabilitaMousePersonalizzato = systems;
            player.Host.Seed(3);
            const FinestraEsercizio &form = OpenExercise(player, exercise);
            for (const Button &button : form.Command1)
                QCOMPARE(button.MousePointer(), systems ? platform::MousePointer::Default
                                                        : platform::MousePointer::Custom);
        }
    }

    void overTheWindowTheLightGoesOut_data() { RowsOfExercises(); }
    void overTheWindowTheLightGoesOut()
    {
        QFETCH(int, exercise);
        Player player;
        SuoniAttivi = false;
        player.Host.Seed(3);
        const FinestraEsercizio &form = OpenExercise(player, exercise);
        int lit = 0;
        for (const Button &button : form.Command1) {
            if (!button.Enabled())
                continue;
            MoveOver(button);
            QCOMPARE(button.BackColor(), ToColor(ColorePulsantiSelezionati));
            MoveOverWindow(form);
            QCOMPARE(button.BackColor(), ToColor(ColoreBottoni));
            ++lit;
        }
        if (lit == 0)
            QSKIP("no button is lit before the task is done");
    }

    void activatedAgainItPaintsAnewInTheMiddleOfAColouring()
    {
        Player player;
        SuoniAttivi = false;
        const QList<ScriptedDraw> onTheRoof = {{2, 0}, {8, 1}};
        player.Host.Expect(Colouring({1, 1, 1, 1, 1, 1}, 1, 0) + onTheRoof + onTheRoof);
        auto &form = player.Open<FormEs1>();
        ClickOn(form.Command1(0));
        ClickOn(form.Command1(2));
        player.Host.Expect(Colouring({3, 3, 3, 3, 3, 3}, 1, 0) + onTheRoof);
        form.OnActivate();
        QCOMPARE(form.Label1.Caption(), QStringLiteral("Il tetto è blu."));
        QVERIFY(!player.Host.DrawsLeft());
    }

    void pendingEventsPassAtAResizeWithOneSwitchOnly_data() { RowsOfModes({0, 1, 2, 3}); }
    void pendingEventsPassAtAResizeWithOneSwitchOnly()
    {
        QFETCH(int, mode);
        Player player;
        SuoniAttivi = false;
        ModoInput = static_cast<int16_t>(mode);
        player.Host.Seed(3);
        auto &form = player.Open<FormEs1>();
        bool passed = false;
        QMetaObject::invokeMethod(
            QCoreApplication::instance(), [&] { passed = true; }, Qt::QueuedConnection);
        form.OnResize();
        QCOMPARE(passed, mode == 2);
        QCoreApplication::processEvents();
    }

    void theLevelIsWrittenAlsoWhenItStays()
    {
        Player player;
        SuoniAttivi = false;
        PassaggioLivelli = true;
        player.Host.Seed(3);
        auto &form = player.Open<FormEs1>();
        DoTheTask(form);
        player.Host.TakeEvents();
        ClickOn(NextTaskButton(form));
        QCOMPARE(player.Host.TakeEvents().first(),
                 QStringLiteral("StatusBar1.Panels(3)=1 Livello"));
    }

    // Where keys answer, too, the menu bar is for the mouse.
    void theWayBackIsInTheMenuBarInEveryMode_data()
    {
        QTest::addColumn<int>("exercise");
        QTest::addColumn<int>("mode");
        for (int exercise = 1; exercise <= 8; ++exercise)
            for (const int mode : {0, 1, 2, 3})
                QTest::addRow("exercise %d, mode %d", exercise, mode) << exercise << mode;
    }
    void theWayBackIsInTheMenuBarInEveryMode()
    {
        QFETCH(int, exercise);
        QFETCH(int, mode);
        Player player;
        SuoniAttivi = false;
        ModoInput = static_cast<int16_t>(mode);
        player.Host.Seed(3);
        FinestraEsercizio &form = OpenExercise(player, exercise);
        ChooseLevel(form, 2);
        Esatti = 5;
        Errati = 6;
        ClickInMenuBar(form, QStringLiteral("mnuEsci"));
        // The level that was left, and the one at the end.
        QCOMPARE(NumeroEserciziEseguiti, int16_t{3});
        QCOMPARE(EserciziEseguiti(1, 1), QStringLiteral("1"));
        QCOMPARE(EserciziEseguiti(2, 1), QStringLiteral("2"));
        QCOMPARE(EserciziEseguiti(2, 2), QStringLiteral("5"));
        QCOMPARE(EserciziEseguiti(2, 3), QStringLiteral("6"));
        QCOMPARE(Form::Loaded().size(), size_t{1});
        QCOMPARE(Form::Loaded().front()->Name(), QStringLiteral("FormMenu"));
    }
};

MORLENE_TEST(TestExerciseWindow)
#include "test_exercise_window.moc"
