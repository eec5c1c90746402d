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
