// The frame that walks over a grid of houses, and what is held in the colour of a button.
#include "exercises/grid_fixture.h"
#include "support/registered_tests.h"

#include <QColor>
#include <QEvent>
#include <QImage>
#include <QPixmap>
#include <QTest>

using namespace platform;

namespace {

// Whether the frame stood on a figure when the keyboard came.
class FocusWatcher : public QObject {
public:
    FocusWatcher(const GrigliaFigure &form, int figure) : m_form(form), m_figure(figure)
    {
        form.PictureScansioneAutomatica.Widget()->installEventFilter(this);
    }
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::FocusIn)
            FramedBefore = FrameIsOn(m_form, m_figure);
        return false;
    }
    bool FramedBefore = false;

private:
    const GrigliaFigure &m_form;
    int m_figure;
};

} // namespace

class TestFigureGridScanning : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // The order is the same in both, where figures are removed.
    void aRemovalByKeysTakesItsStepsInOrder_data() { RowsOfGrids(); }
    void aRemovalByKeysTakesItsStepsInOrder()
    {
        QFETCH(int, exercise);
        Player player;
        ModoInput = 3;
        player.Host.Expect(GridTask(2, 1));
        GrigliaFigure &form = OpenGrid(player, exercise);
        player.Host.TakeEvents();
        player.Host.Expect({{6, 1}});
        PressAndRelease(form.PictureScansioneManuale, Qt::Key_Return);
        QCOMPARE(player.Host.TakeEvents(),
                 QStringList({QStringLiteral("StatusBar1.Panels(1)=1 Esatti"),
                              QStringLiteral("ShockwaveFlash1(0).Visible=False"),
                              QStringLiteral("suono si/2.wav"),
                              QStringLiteral("Command1(0).BackColor=000000ff")}));
        QVERIFY(FrameIsOn(form, 1));
    }

    void downAndUpGoByTheColumnsOfTheLevel_data()
    {
        QTest::addColumn<int>("exercise");
        QTest::addColumn<int>("level");
        QTest::addColumn<int>("down");
        QTest::addColumn<int>("up");
        const QList<QPair<int, int>> steps = {{0, 0}, {2, 2}, {3, 3}, {3, 6}, {4, 8}};
        for (const int exercise : {6, 7})
            for (int level = 1; level <= 5; ++level)
                QTest::addRow("exercise %d, level %d", exercise, level)
                    << exercise << level << steps.at(level - 1).first << steps.at(level - 1).second;
    }
    void downAndUpGoByTheColumnsOfTheLevel()
    {
        QFETCH(int, exercise);
        QFETCH(int, level);
        QFETCH(int, down);
        QFETCH(int, up);
        Player player;
        SuoniAttivi = false;
        ModoInput = 3;
        player.Host.Seed(1);
        GrigliaFigure &form = OpenGrid(player, exercise);
        ChooseLevel(form, level);
        PressAndRelease(form.PictureScansioneManuale, Qt::Key_Down);
        QVERIFY(FrameIsOn(form, down));
        PressAndRelease(form.PictureScansioneManuale, Qt::Key_Up);
        QVERIFY(FrameIsOn(form, 0));
        PressAndRelease(form.PictureScansioneManuale, Qt::Key_Up);
        QVERIFY(FrameIsOn(form, up));
    }

    // Of the colour that lit buttons have.
    void theFrameIsInThePlayersColour_data() { RowsOfGrids(); }
    void theFrameIsInThePlayersColour()
    {
        QFETCH(int, exercise);
        Player player;
        ModoInput = 1;
        ColorePulsantiSelezionati = 0x00A01050;
        player.Host.Seed(1);
        const GrigliaFigure &form = OpenGrid(player, exercise);
        const QImage frame = form.Shape1.Widget()->grab().toImage();
        QCOMPARE(frame.pixelColor(frame.width() / 2, 4), QColor(0x50, 0x10, 0xA0));
    }

    void theFrameWalksOverWhatIsVisible_data() { RowsOfGrids(); }
    void theFrameWalksOverWhatIsVisible()
    {
        QFETCH(int, exercise);
        Player player;
        SuoniAttivi = false;
        ModoInput = 3;
        player.Host.Seed(1);
        GrigliaFigure &form = OpenGrid(player, exercise);
        const auto key = [&](Qt::Key name) { PressAndRelease(form.PictureScansioneManuale, name); };
        QVERIFY(FrameIsOn(form, 0));
        // Two figures side by side: up and down do nothing.
        key(Qt::Key_Down);
        key(Qt::Key_Up);
        QCOMPARE(form.PosizioneScansione, int16_t{0});
        key(Qt::Key_Left);
        QVERIFY(FrameIsOn(form, 1));
        ChooseLevel(form, 4);
        form.PosizioneScansione = 7;
        key(Qt::Key_Down);
        QCOMPARE(form.PosizioneScansione, int16_t{1});
        key(Qt::Key_Up);
        QCOMPARE(form.PosizioneScansione, int16_t{7});
        key(Qt::Key_Right);
        key(Qt::Key_Right);
        QVERIFY(FrameIsOn(form, 0));
        for (const int hidden : {1, 2, 3})
            form.ShockwaveFlash1(hidden).SetVisible(false);
        key(Qt::Key_Right);
        QVERIFY(FrameIsOn(form, 4));
        key(Qt::Key_Left);
        QVERIFY(FrameIsOn(form, 0));
        key(Qt::Key_Down);
        QVERIFY(FrameIsOn(form, 6));
        ChooseLevel(form, 5);
        key(Qt::Key_Down);
        QVERIFY(FrameIsOn(form, 4));
        key(Qt::Key_Up);
        key(Qt::Key_Up);
        QVERIFY(FrameIsOn(form, 8));
    }

    void aColumnWithoutFiguresLeavesTheFrameWhereItWas_data() { RowsOfGrids(); }
    void aColumnWithoutFiguresLeavesTheFrameWhereItWas()
    {
        QFETCH(int, exercise);
        Player player;
        SuoniAttivi = false;
        ModoInput = 3;
        player.Host.Seed(1);
        GrigliaFigure &form = OpenGrid(player, exercise);
        ChooseLevel(form, 4);
        for (const int hidden : {1, 4, 7})
            form.ShockwaveFlash1(hidden).SetVisible(false);
        form.PosizioneScansione = 4;
        for (const Qt::Key name : {Qt::Key_Down, Qt::Key_Up}) {
            PressAndRelease(form.PictureScansioneManuale, name);
            QCOMPARE(form.PosizioneScansione, int16_t{4});
            QVERIFY(FrameIsOn(form, 4));
        }
    }

    void theKeyboardIsTakenAfterTheStepAndNotWhenDone_data() { RowsOfGrids(); }
    void theKeyboardIsTakenAfterTheStepAndNotWhenDone()
    {
        QFETCH(int, exercise);
        Player player;
        SuoniAttivi = false;
        ModoInput = 2;
        player.Host.Seed(1);
        GrigliaFigure &form = OpenGrid(player, exercise);
        form.PictureScansioneAutomatica.Widget()->clearFocus();
        const FocusWatcher watcher(form, 1);
        player.Host.Advance(1000);
        QVERIFY(form.PictureScansioneAutomatica.HasFocus());
        QVERIFY(watcher.FramedBefore);
        QVERIFY(FrameIsOn(form, 1));
        form.PictureScansioneAutomatica.Widget()->clearFocus();
        form.Command1(0).SetBackColor(ToColor(ColorePulsantiSelezionati));
        player.Host.Advance(3000);
        QVERIFY(!form.PictureScansioneAutomatica.HasFocus());
        QVERIFY(FrameIsOn(form, 1));
    }

    void withOneColourForAllButtonsEveryChoiceAsksForANewTask_data() { RowsOfGrids(); }
    void withOneColourForAllButtonsEveryChoiceAsksForANewTask()
    {
        QFETCH(int, exercise);
        Player player;
        SuoniAttivi = false;
        ModoInput = 1;
        ColorePulsantiSelezionati = ColoreBottoni;
        player.Host.Seed(1);
        GrigliaFigure &form = OpenGrid(player, exercise);
        for (int choice = 0; choice < 5; ++choice) {
            player.Host.TakeEvents();
            PressAndRelease(form.PictureScansioneManuale, Qt::Key_Return);
            QVERIFY(!player.Host.TakeEvents().filter(QStringLiteral("morlena0.swf")).isEmpty());
        }
        QCOMPARE(Esatti + Errati, 0);
    }

    void aLevelChosenWhenDoneAsksForANewTaskOnceMore_data() { RowsOfGrids(); }
    void aLevelChosenWhenDoneAsksForANewTaskOnceMore()
    {
        QFETCH(int, exercise);
        Player player;
        SuoniAttivi = false;
        ModoInput = 1;
        player.Host.Seed(1);
        GrigliaFigure &form = OpenGrid(player, exercise);
        form.Command1(0).SetBackColor(ToColor(ColorePulsantiSelezionati));
        player.Host.TakeEvents();
        ChooseLevel(form, 1);
        QVERIFY(player.Host.TakeEvents().filter(QStringLiteral("morlena0.swf")).isEmpty());
        QVERIFY(IsDoneByScanning(form));
        PressAndRelease(form.PictureScansioneManuale, Qt::Key_Return);
        QCOMPARE(Esatti + Errati, 0);
        QVERIFY(!IsDoneByScanning(form));
    }

    void aLevelChosenWithAHeldSwitchStartsTheScanningAgain_data() { RowsOfGrids(); }
    void aLevelChosenWithAHeldSwitchStartsTheScanningAgain()
    {
        QFETCH(int, exercise);
        Player player;
        SuoniAttivi = false;
        ModoInput = 2;
        player.Host.Seed(1);
        GrigliaFigure &form = OpenGrid(player, exercise);
        QTest::keyPress(form.PictureScansioneAutomatica.Widget(), Qt::Key_Space);
        player.Host.Advance(3000);
        QVERIFY(FrameIsOn(form, 0));
        ChooseLevel(form, 2);
        player.Host.Advance(1000);
        QVERIFY(FrameIsOn(form, 1));
        QTest::keyRelease(form.PictureScansioneAutomatica.Widget(), Qt::Key_Space);
    }
};

MORLENE_TEST(TestFigureGridScanning)
#include "test_figure_grid_scanning.moc"
