// What holds for each of the eight exercises: the player's colours, levels that follow the score,
// the mouse without a part in scanning, and errors that a child never sees.
#include "exercises/every_exercise.h"
#include "platform/machine/application.h"
#include "printing/frm_stampa.h"
#include "printing/print_fields.h"
#include "support/registered_tests.h"
#include "support/windows/form1.h"

#include <QImage>
#include <QPixmap>
#include <QTest>

using namespace platform;

namespace {

// The sentences, the description or the instruction.
VisualControl &TextOf(const FinestraEsercizio &form)
{
    const bool page = form.Name() == QStringLiteral("FormEs4") ||
                      form.Name() == QStringLiteral("FormEs6") ||
                      form.Name() == QStringLiteral("FormEs7");
    const QString name = page ? QStringLiteral("Text1") : QStringLiteral("Label1");
    for (Control *control : form.Controls())
        if (control->Key() == name)
            return dynamic_cast<VisualControl &>(*control);
    throw std::runtime_error("a window without sentences");
}

bool Shows(const VisualControl &control, const QColor &colour)
{
    const QImage seen = control.Widget()->grab().toImage();
    for (int y = 0; y < seen.height(); ++y)
        for (int x = 0; x < seen.width(); ++x)
            if (seen.pixelColor(x, y) == colour)
                return true;
    return false;
}

} // namespace

class TestEveryExercise : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theSentencesStandInThePlayersColoursAndFont_data() { RowsOfExercises(); }
    void theSentencesStandInThePlayersColoursAndFont()
    {
        QFETCH(int, exercise);
        Player player;
        ColoreSfondoTesto = 0x00112233;
        ColoreFont = 0x00C4B5A6;
        FontCorrente = QStringLiteral("DejaVu Sans");
        DimensioneFont = 37;
        player.Host.Seed(3);
        const FinestraEsercizio &form = OpenExercise(player, exercise);
        if (exercise == 3 || exercise == 8)
            ClickOn(form.Command1(1)); // the instruction is there when it is asked for
        const VisualControl &text = TextOf(form);
        QCOMPARE(text.BackColor(), Color{0x00112233});
        QCOMPARE(text.ForeColor(), Color{0x00C4B5A6});
        QCOMPARE(text.Font().Name, QStringLiteral("DejaVu Sans"));
        QCOMPARE(text.Font().Size, 37.0);
        QVERIFY(Shows(text, QColor(0x33, 0x22, 0x11)));
        QVERIFY(Shows(text, QColor(0xA6, 0xB5, 0xC4)));
    }

    void windowAndButtonsTakeThePlayersColours_data() { RowsOfExercises(); }
    void windowAndButtonsTakeThePlayersColours()
    {
        QFETCH(int, exercise);
        Player player;
        ColoreSfondo = 0x00998877;
        ColoreBottoni = 0x00123456;
        ColoriVari = false;
        player.Host.Seed(3);
        const FinestraEsercizio &form = OpenExercise(player, exercise);
        QCOMPARE(form.BackColor(), Color{0x00998877});
        for (const Button &button : form.Command1) {
            // The instruction's own button keeps its design.
            const bool help = (exercise == 3 || exercise == 8) && button.Index() == 1;
            QCOMPARE(button.BackColor(), help ? SystemButtonFace : Color{0x00123456});
        }
    }

    void withManyColoursTheWindowKeepsItsDesign_data() { RowsOfExercises(); }
    void withManyColoursTheWindowKeepsItsDesign()
    {
        QFETCH(int, exercise);
        const QList<Color> designed = {0x00FF0000, 0x0000FFFF, 0x00FFC0C0, 0x00FFFFC0,
                                       0x00FFC0FF, 0x00FFFFC0, 0x00FFFFC0, 0x00FFC0C0};
        Player player;
        ColoreSfondo = 0x00998877;
        ColoriVari = true;
        player.Host.Seed(3);
        QCOMPARE(OpenExercise(player, exercise).BackColor(), designed.at(exercise - 1));
    }

    void levelsFollowTheScoreFromTaskToTask_data()
    {
        QTest::addColumn<int>("exercise");
        QTest::addColumn<int>("levels");
        QTest::addColumn<int>("rise");
        const QList<QPair<int, int>> windows = {{6, 7},  {3, 7},  {4, 12}, {6, 14},
                                                {4, 20}, {5, 18}, {5, 18}, {4, 12}};
        for (int exercise = 1; exercise <= 8; ++exercise)
            QTest::addRow("exercise %d", exercise)
                << exercise << windows.at(exercise - 1).first << windows.at(exercise - 1).second;
    }

    void levelsFollowTheScoreFromTaskToTask()
    {
        QFETCH(int, exercise);
        QFETCH(int, levels);
        QFETCH(int, rise);
        Player player;
        SuoniAttivi = false;
        PassaggioLivelli = true;
        player.Host.Seed(5);
        FinestraEsercizio &form = OpenExercise(player, exercise);
        // Does the task, and asks for the next one at a score.
        const auto nextTaskAt = [&](int right, int wrong) {
            DoTheTask(form);
            Esatti = right;
            Errati = static_cast<int16_t>(wrong);
            ClickOn(NextTaskButton(form));
        };
        const auto levelShown = [&] { return form.StatusBar1.Panel(3); };
        nextTaskAt(rise + 1, 2);
        QCOMPARE(levelShown(), QStringLiteral("1 Livello"));
        QCOMPARE(NumeroEserciziEseguiti, int16_t{1});
        nextTaskAt(rise + 2, 2);
        QCOMPARE(levelShown(), QStringLiteral("2 Livello"));
        QCOMPARE(form.Livello, int16_t{2});
        QCOMPARE(Esatti, 0);
        QCOMPARE(EserciziEseguiti(1, 1), QStringLiteral("1"));
        QCOMPARE(EserciziEseguiti(1, 2), QString::number(rise + 2));
        QCOMPARE(EserciziEseguiti(1, 3), QStringLiteral("2"));
        nextTaskAt(0, 4);
        QCOMPARE(levelShown(), QStringLiteral("2 Livello"));
        nextTaskAt(0, 5);
        QCOMPARE(levelShown(), QStringLiteral("1 Livello"));
        QCOMPARE(NumeroEserciziEseguiti, int16_t{3});
        for (int level = 2; level <= levels; ++level) {
            nextTaskAt(rise, 0);
            QCOMPARE(form.Livello, static_cast<int16_t>(level));
        }
        // There is nothing above the last one.
        const int16_t row = NumeroEserciziEseguiti;
        nextTaskAt(rise + 100, 0);
        QCOMPARE(form.Livello, static_cast<int16_t>(levels));
        QCOMPARE(NumeroEserciziEseguiti, row);
        QCOMPARE(Esatti, rise + 100);
    }

    void levelsStayWhileTheyAreChosenByHand_data() { RowsOfExercises(); }
    void levelsStayWhileTheyAreChosenByHand()
    {
        QFETCH(int, exercise);
        Player player;
        SuoniAttivi = false;
        player.Host.Seed(5);
        FinestraEsercizio &form = OpenExercise(player, exercise);
        ChooseLevel(form, 2);
        for (const QPair<int, int> &score : {qMakePair(100, 0), qMakePair(0, 100)}) {
            DoTheTask(form);
            Esatti = score.first;
            Errati = static_cast<int16_t>(score.second);
            ClickOn(NextTaskButton(form));
            QCOMPARE(form.StatusBar1.Panel(3), QStringLiteral("2 Livello"));
            QCOMPARE(Esatti, score.first);
        }
    }

    void theMouseHasNoPartInScanning_data()
    {
        QTest::addColumn<int>("exercise");
        QTest::addColumn<int>("mode");
        for (int exercise = 1; exercise <= 8; ++exercise)
            for (const int mode : {1, 2, 3})
                QTest::addRow("exercise %d, mode %d", exercise, mode) << exercise << mode;
    }

    void theMouseHasNoPartInScanning()
    {
        QFETCH(int, exercise);
        QFETCH(int, mode);
        Player player;
        ModoInput = static_cast<int16_t>(mode);
        player.Host.Seed(4);
        const FinestraEsercizio &form = OpenExercise(player, exercise);
        Step(player.Host, form); // so that there is something to answer
        player.Host.TakeEvents();
        for (Control *control : form.Controls()) {
            const auto *seen = dynamic_cast<const VisualControl *>(control);
            if (seen == nullptr || !seen->Widget()->isVisible())
                continue;
            const QString name = seen->Key();
            // The instruction opens by mouse in every mode, and over the free part of the bar of
            // pictures the pointer wipes the frame.
            const bool help =
                (exercise == 3 || exercise == 8) && name == QStringLiteral("Command1(1)");
            if (help || name == QStringLiteral("Picture1") ||
                name.startsWith(QStringLiteral("Shape1")))
                continue;
            MoveOver(*seen);
            ClickTwiceQuickly(*seen);
            if (const auto *figure = dynamic_cast<const MovieControl *>(seen))
                for (int part = 1; part <= Nuvole; ++part)
                    ClickOnPart(*figure, part);
        }
        MoveOverWindow(form);
        QCOMPARE(player.Host.TakeEvents(), QStringList());
        QCOMPARE(Esatti + Errati, 0);
    }

    // The hourglass stays, nothing is said, and the task goes on as far as it was built.
    void anErrorInAColouringLeavesTheHourglassUntilTheNextOne_data() { RowsOfExercises(); }
    void anErrorInAColouringLeavesTheHourglassUntilTheNextOne()
    {
        QFETCH(int, exercise);
        // No integer of 16 bits: the draw itself is the failing statement.
        constexpr int Failing = 70000;
        const QList<ScriptedDraw> inTheSecondFigure = QList<ScriptedDraw>{{2, 0}} +
                                                      Colouring({1, 1, 1, 1, 1, 1}, 0, 0) +
                                                      QList<ScriptedDraw>{{4, Failing}};
        const QList<QList<ScriptedDraw>> upToTheFault = {
            {{4, Failing}},
            {{2, Failing}},
            {{4, Failing}},
            {{2, Failing}},
            {{8, 1}, {4, 1}, {100, 0}, {4, Failing}},
            inTheSecondFigure,
            inTheSecondFigure,
            {{4, Failing}},
        };
        Player player;
        SuoniAttivi = false;
        player.Host.Expect(upToTheFault.at(exercise - 1));
        player.Host.Seed(6);
        FinestraEsercizio &form = OpenExercise(player, exercise);
        QCOMPARE(player.Host.FatalNumber, 0);
        QCOMPARE(form.MousePointer(), platform::MousePointer::Hourglass);
        QVERIFY(!player.Host.DrawsLeft());
        QVERIFY(!NextTaskButton(form).Enabled());
        // Four tasks share a colouring in the first two exercises.
        for (int task = 0; task < 4; ++task)
            ChooseLevel(form, 1);
        QCOMPARE(form.MousePointer(), platform::MousePointer::Default);
        DoTheTask(form);
        QCOMPARE(player.Host.FatalNumber, 0);
    }

    void anErrorInTheLightUnderThePointerIsNotTold_data() { RowsOfExercises(); }
    void anErrorInTheLightUnderThePointerIsNotTold()
    {
        QFETCH(int, exercise);
        Player player;
        player.Host.Seed(6);
        const FinestraEsercizio &form = OpenExercise(player, exercise);
        const double colour = ColoreBottoni;
        ColoreBottoni = 1e12; // no colour at all
        MoveOver(form.Command1(0));
        MoveOver(TextOf(form));
        MoveOverWindow(form);
        QCOMPARE(player.Host.FatalNumber, 0);
        ColoreBottoni = colour;
        // A button that lights up is enabled; a disabled one belongs to the window.
        Button &button = form.Command1(form.Command1(0).Enabled() ? 0 : form.Command1.Count() - 1);
        MoveOver(button);
        QCOMPARE(button.BackColor() == ToColor(ColorePulsantiSelezionati), button.Enabled());
    }

    void anErrorInATickOfTheScanningIsNotTold_data() { theMouseHasNoPartInScanning_data(); }
    void anErrorInATickOfTheScanningIsNotTold()
    {
        QFETCH(int, exercise);
        QFETCH(int, mode);
        Player player;
        ModoInput = static_cast<int16_t>(mode);
        player.Host.Seed(6);
        OpenExercise(player, exercise);
        ColoreBottoni = 1e12;
        ColorePulsantiSelezionati = 1e12;
        Guarded([&] { player.Host.Advance(5000); });
        QCOMPARE(player.Host.FatalNumber, 0);
    }

    void theLightFollowsThePointerInEveryExercise_data() { RowsOfExercises(); }
    void theLightFollowsThePointerInEveryExercise()
    {
        QFETCH(int, exercise);
        Player player;
        ColoreBottoni = 0x00123456;
        player.Host.Seed(4);
        FinestraEsercizio &form = OpenExercise(player, exercise);
        if (exercise == 3 || exercise == 8)
            ClickOn(form.Command1(1)); // the instruction's text is there when it is asked for
        // What cannot be pressed is not lit by the toolkit's own event, so all are let in.
        for (Button &button : form.Command1)
            button.SetEnabled(true);
        const auto lit = [&] {
            QList<int> indexes;
            for (const Button &button : form.Command1)
                if (button.BackColor() == ToColor(ColorePulsantiSelezionati))
                    indexes << button.Index();
            return indexes;
        };
        for (const Button &button : form.Command1) {
            MoveOver(button);
            QCOMPARE(lit(), QList<int>{button.Index()});
        }
        MoveOver(TextOf(form));
        QCOMPARE(lit(), QList<int>());
        MoveOver(form.Command1(0));
        MoveOverWindow(form);
        QCOMPARE(lit(), QList<int>());
        QCOMPARE(form.Command1(0).BackColor(), Color{0x00123456});
    }

    void theKeyboardComesBackInEveryExercise_data() { theMouseHasNoPartInScanning_data(); }
    void theKeyboardComesBackInEveryExercise()
    {
        QFETCH(int, exercise);
        QFETCH(int, mode);
        Player player;
        ModoInput = static_cast<int16_t>(mode);
        VelocitaScansione = 3;
        player.Host.Seed(4);
        const FinestraEsercizio &form = OpenExercise(player, exercise);
        const int wait = mode == 2 ? 750 : 100; // ms
        KeyTarget(form).Widget()->clearFocus();
        player.Host.Advance(wait - 1);
        QVERIFY(!KeyTarget(form).HasFocus());
        player.Host.Advance(1);
        QVERIFY(KeyTarget(form).HasFocus());
    }

    void aLevelChosenWhenTheTaskIsDoneMakesANewOne_data() { RowsOfExercises(); }
    void aLevelChosenWhenTheTaskIsDoneMakesANewOne()
    {
        QFETCH(int, exercise);
        Player player;
        SuoniAttivi = false;
        player.Host.Seed(4);
        FinestraEsercizio &form = OpenExercise(player, exercise);
        DoTheTask(form);
        const int right = Esatti;
        ChooseLevel(form, 2);
        QVERIFY(!NextTaskButton(form).Enabled());
        QCOMPARE(EserciziEseguiti(1, 2), QString::number(right));
        DoTheTask(form);
        QVERIFY(Esatti > 0);
    }

    void leavingWritesARowAndShowsTheMenu_data() { RowsOfExercises(); }
    void leavingWritesARowAndShowsTheMenu()
    {
        QFETCH(int, exercise);
        Player player;
        SuoniAttivi = false;
        player.Host.Seed(4);
        FinestraEsercizio &form = OpenExercise(player, exercise);
        const QString name = form.Name();
        ChooseLevel(form, 2);
        DoTheTask(form);
        Errati = 3;
        const QString right = QString::number(Esatti);
        ClickInMenuBar(form, QStringLiteral("mnuEsci"));
        QCOMPARE(EserciziEseguiti(2, 1), QStringLiteral("2"));
        QCOMPARE(EserciziEseguiti(2, 2), right);
        QCOMPARE(EserciziEseguiti(2, 3), QStringLiteral("3"));
        QCOMPARE(NumeroEserciziEseguiti, int16_t{3});
        QVERIFY(Form::Find(QStringLiteral("FormMenu")) != nullptr);
        QVERIFY(Form::Find(name) == nullptr);
    }

    // In every input mode, two exercises each.
    void theFourWaysToPaperAreInEveryExercise_data() { RowsOfExercises(); }
    void theFourWaysToPaperAreInEveryExercise()
    {
        QFETCH(int, exercise);
        AzzeraStampa();
        Player player;
        ModoInput = static_cast<int16_t>(exercise % 4);
        RegistraFinestra(QStringLiteral("Form1"), []() -> Form * { return new Form1; });
        player.Host.Seed(4);
        const FinestraEsercizio &form = OpenExercise(player, exercise);
        const auto press = [&](Qt::Key key) {
            QTest::keyClick(form.Window(), key, Qt::ControlModifier);
        };
        press(Qt::Key_S);
        QCOMPARE(player.Host.Printer.Documents.size(), qsizetype{1});
        for (const auto &[key, orientation] :
             QList<QPair<Qt::Key, int>>{{Qt::Key_O, 2}, {Qt::Key_V, 1}}) {
            int seen = 0;
            player.Host.ExpectModal([&](Form &dialog) {
                seen = Stampa.OrientamentoRichiesto;
                ClickOn(dynamic_cast<FrmStampa &>(dialog).cmdStampa);
            });
            press(key);
            QCOMPARE(seen, orientation);
        }
        QCOMPARE(player.Host.Printer.Documents.size(), qsizetype{3});
        bool chosen = false;
        player.Host.ExpectModal([&](Form &pictures) {
            chosen = pictures.Name() == QStringLiteral("Form1");
            pictures.Unload();
        });
        press(Qt::Key_P);
        QVERIFY(chosen);
        QCOMPARE(form.Timer1.Enabled(), ModoInput != 0);
        AzzeraStampa();
    }
};

MORLENE_TEST(TestEveryExercise)
#include "test_every_exercise.moc"
