// "Indovina chi?": the house described is found; by arrow keys the game of the intruders is played.
#include "exercises/form_es7.h"

#include "exercises/grid_fixture.h"
#include "support/application_folder.h"
#include "support/fair_tasks.h"
#include "support/hands.h"
#include "support/registered_tests.h"

#include <QDir>
#include <QFile>
#include <QTest>

using namespace platform;

class TestFormEs7 : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theFigureFoundIsFramedAndTheOthersStay()
    {
        Player player;
        player.Host.Expect(GridTask(2, 1));
        auto &form = player.Open<FormEs7>();
        player.Host.TakeEvents();
        player.Host.Expect({{4, 2}});
        ClickOnFigure(form, 0);
        QCOMPARE(player.Host.TakeEvents(),
                 QStringList({QStringLiteral("suono no/3.wav"),
                              QStringLiteral("StatusBar1.Panels(2)=1 Errati")}));
        QCOMPARE(FiguresShown(form).size(), 2);
        player.Host.Expect({{6, 5}});
        ClickOnFigure(form, 1);
        QCOMPARE(
            player.Host.TakeEvents(),
            QStringList({QStringLiteral("StatusBar1.Panels(1)=1 Esatti"),
                         QStringLiteral("suono si/6.wav"), QStringLiteral("Shape1.Visible=True"),
                         QStringLiteral("Command1(0).Enabled=True")}));
        QVERIFY(FrameIsOn(form, 1));
        QCOMPARE(FiguresShown(form).size(), 2);
        // The task is over: clicks do nothing.
        ClickOnFigure(form, 0);
        ClickOnFigure(form, 1);
        QCOMPARE(player.Host.TakeEvents(), QStringList());
        player.Host.Expect(GridTask(2, 0));
        ClickOn(form.Command1(0));
        QVERIFY(!form.Shape1.Visible());
    }

    void byTwoKeysAndByOneSwitchTheFigureIsFound_data()
    {
        QTest::addColumn<int>("mode");
        QTest::newRow("two keys") << 1;
        QTest::newRow("one switch") << 2;
    }

    void byTwoKeysAndByOneSwitchTheFigureIsFound()
    {
        QFETCH(int, mode);
        Player player;
        ModoInput = static_cast<int16_t>(mode);
        player.Host.Expect(GridTask(2, 0));
        auto &form = player.Open<FormEs7>();
        player.Host.Expect(GridTask(4, 1));
        ChooseLevel(form, 2);
        PictureBox &target =
            mode == 2 ? form.PictureScansioneAutomatica : form.PictureScansioneManuale;
        const Qt::Key choose = mode == 2 ? Qt::Key_Space : Qt::Key_Return;
        player.Host.Expect({{4, 0}});
        PressAndRelease(target, choose);
        QCOMPARE(Errati, int16_t{1});
        QCOMPARE(FiguresShown(form).size(), 4);
        if (mode == 2)
            player.Host.Advance(form.Timer1.Interval());
        else
            PressAndRelease(target, Qt::Key_Space);
        player.Host.TakeEvents();
        player.Host.Expect({{6, 0}});
        PressAndRelease(target, choose);
        QStringList events = player.Host.TakeEvents();
        events.removeIf(
            [](const QString &event) { return event.startsWith(QStringLiteral("Timer1.")); });
        QCOMPARE(events.first(), QStringLiteral("StatusBar1.Panels(1)=1 Esatti"));
        QCOMPARE(events.mid(events.size() - 2),
                 QStringList({QStringLiteral("suono si/1.wav"),
                              QStringLiteral("Command1(0).BackColor=000000ff")}));
        QCOMPARE(FiguresShown(form), QList<int>{1});
        QVERIFY(FrameIsOn(form, 1));
        player.Host.Expect(GridTask(4, 3));
        PressAndRelease(target, choose);
        QCOMPARE(FiguresShown(form).size(), 4);
        QVERIFY(!IsDoneByScanning(form));
        QCOMPARE(Esatti, 1);
    }

    void byArrowsTheIntrudersAreRemoved()
    {
        Player player;
        SuoniAttivi = false;
        ModoInput = 3;
        player.Host.Expect(GridTask(2, 0));
        auto &form = player.Open<FormEs7>();
        player.Host.Expect(GridTask(4, 1));
        ChooseLevel(form, 2);
        const auto key = [&](Qt::Key name) { PressAndRelease(form.PictureScansioneManuale, name); };
        key(Qt::Key_Right);
        key(Qt::Key_Return);
        QCOMPARE(Errati, int16_t{1});
        key(Qt::Key_Down);
        key(Qt::Key_Return);
        key(Qt::Key_Return);
        QCOMPARE(Esatti, 1);
        QCOMPARE(FiguresShown(form), QList<int>({0, 1, 2}));
        key(Qt::Key_Left);
        key(Qt::Key_Return);
        key(Qt::Key_Up);
        QVERIFY(FrameIsOn(form, 0));
        key(Qt::Key_Return);
        QCOMPARE(Esatti, 3);
        QVERIFY(IsDoneByScanning(form));
        QVERIFY(FrameIsOn(form, 1));
        QCOMPARE(FiguresShown(form), QList<int>{1});
    }

    // Unlike in the window of the intruders the name is the movie's own.
    void theLanguageFileHasNoPartInTheColours()
    {
        Player player;
        const ApplicationFolder folder(player.Host);
        folder.Write(QStringLiteral("lngmorlene/italiano.lng"), "[Strings]\r\n0103=\"Altro\"\r\n");
        QDir().mkpath(folder.Path(QStringLiteral("swf")));
        QFile::copy(QStringLiteral(SOURCE_DIR "/data/swf/morlene1.svg"),
                    folder.Path(QStringLiteral("swf/morlene1.svg")));
        player.Host.Seed(3);
        const auto &form = player.Open<FormEs7>();
        QVERIFY(player.Host.Events.filter(QStringLiteral("Altro")).isEmpty());
        QVERIFY(IsPainted(form.ShockwaveFlash1(0).Shown()));
    }

    void eachLevelIsFairToTheChild_data() { RowsOfLevels(5); }

    void eachLevelIsFairToTheChild()
    {
        QFETCH(int, level);
        Player player;
        auto &form = player.OpenForManyTasks<FormEs7>(level, 523);
        int judged = 0;
        int twins = 0;
        while (judged < FairTasks) {
            const QList<int> fitting = FiguresThatFit(form);
            QVERIFY(!fitting.isEmpty());
            if (fitting.size() > 1) {
                ++twins;
                ClickOnFigure(form, form.FiguraCercata);
            } else {
                ++judged;
                const int right = Esatti;
                ClickOnFigure(form, fitting.first());
                QCOMPARE(Esatti, right + 1);
                QCOMPARE(Errati, int16_t{0});
            }
            QVERIFY(form.Command1(0).Enabled());
            ClickOn(form.Command1(0));
            player.Host.TakeEvents();
        }
        qInfo("%d tasks judged, %d with twins passed over", judged, twins);
    }
};

MORLENE_TEST(TestFormEs7)
#include "test_form_es7.moc"
