// "Trova gli intrusi": all houses go but the one described.
#include "exercises/form_es6.h"

#include "exercises/grid_fixture.h"
#include "support/application_folder.h"
#include "support/fair_tasks.h"
#include "support/hands.h"
#include "support/registered_tests.h"

#include <QDir>
#include <QFile>
#include <QTest>

using namespace platform;

class TestFormEs6 : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void anIntruderGoesAndTheLastOneIsFramed()
    {
        Player player;
        player.Host.Expect(GridTask(2, 1));
        auto &form = player.Open<FormEs6>();
        player.Host.TakeEvents();
        player.Host.Expect({{6, 1}});
        // An equal twin is an intruder all the same.
        ClickOnFigure(form, 0);
        QCOMPARE(
            player.Host.TakeEvents(),
            QStringList({QStringLiteral("StatusBar1.Panels(1)=1 Esatti"),
                         QStringLiteral("ShockwaveFlash1(0).Visible=False"),
                         QStringLiteral("suono si/2.wav"), QStringLiteral("Shape1.Visible=True"),
                         QStringLiteral("Command1(0).Enabled=True")}));
        QVERIFY(FrameIsOn(form, 1));
        // The end is not asked for: the figure left still counts as a mistake.
        player.Host.Expect({{4, 0}});
        ClickOnFigure(form, 1);
        QCOMPARE(player.Host.TakeEvents(),
                 QStringList({QStringLiteral("suono no/1.wav"),
                              QStringLiteral("StatusBar1.Panels(2)=1 Errati")}));
    }

    void elevenGoOnLevelFive()
    {
        Player player;
        SuoniAttivi = false;
        player.Host.Seed(3);
        auto &form = player.Open<FormEs6>();
        ChooseLevel(form, 5);
        ClickOnFigure(form, form.FiguraCercata);
        QCOMPARE(Errati, int16_t{1});
        QCOMPARE(FiguresShown(form).size(), 12);
        for (int figure = 0; figure < 12; ++figure)
            if (figure != form.FiguraCercata) {
                QVERIFY(!form.Command1(0).Enabled());
                ClickOnFigure(form, figure);
            }
        QCOMPARE(Esatti, 11);
        QVERIFY(form.Command1(0).Enabled());
        QCOMPARE(FiguresShown(form), QList<int>{form.FiguraCercata});
        player.Host.TakeEvents();
        ClickOn(form.Command1(0));
        // Every figure shows the other movie for no time, and comes back.
        QCOMPARE(player.Host.TakeEvents().filter(QStringLiteral("morlena0.swf")).size(), 12);
        QCOMPARE(FiguresShown(form).size(), 12);
    }

    void scanningRemovesOneByOneAndIgnoresWhatIsGone_data() { RowsOfModes({1, 2, 3}); }

    void scanningRemovesOneByOneAndIgnoresWhatIsGone()
    {
        QFETCH(int, mode);
        Player player;
        SuoniAttivi = false;
        ModoInput = static_cast<int16_t>(mode);
        player.Host.Expect(GridTask(2, 0));
        auto &form = player.Open<FormEs6>();
        player.Host.Expect(GridTask(4, 2));
        ChooseLevel(form, 2);
        const auto step = [&] { Step(player.Host, form); };
        const auto choose = [&] { Choose(form); };
        choose();
        QCOMPARE(Esatti, 1);
        // The frame stands on the empty place, and a choice there is nothing.
        QVERIFY(FrameIsOn(form, 0));
        choose();
        QCOMPARE(Esatti + Errati, 1);
        step();
        step();
        choose();
        QCOMPARE(Errati, int16_t{1});
        step();
        choose();
        step();
        QVERIFY(FrameIsOn(form, 1));
        choose();
        QCOMPARE(Esatti, 3);
        QVERIFY(IsDoneByScanning(form));
        QVERIFY(FrameIsOn(form, 2));
        QVERIFY(!form.Command1(0).Enabled());
        step();
        QVERIFY(FrameIsOn(form, 2));
        // Now a choice asks for the next task.
        player.Host.Expect(GridTask(4, 1));
        player.Host.TakeEvents();
        choose();
        QCOMPARE(player.Host.TakeEvents().filter(QStringLiteral("morlena0.swf")).size(), 4);
        QVERIFY(!IsDoneByScanning(form));
        QVERIFY(FrameIsOn(form, 0));
        QCOMPARE(Errati, int16_t{1});
    }

    void theWindowsTakeTheirColourThroughTheLanguageFile()
    {
        Player player;
        const ApplicationFolder folder(player.Host);
        folder.Write(QStringLiteral("lngmorlene/italiano.lng"), "[Strings]\r\n0103=\"Altro\"\r\n");
        QDir().mkpath(folder.Path(QStringLiteral("swf")));
        QFile::copy(QStringLiteral(SOURCE_DIR "/data/swf/morlene1.svg"),
                    folder.Path(QStringLiteral("swf/morlene1.svg")));
        player.Host.Seed(3);
        auto &form = player.Open<FormEs6>();
        QVERIFY(player.Host.Events.filter(QStringLiteral("SetVariable=Altro ")).size() >= 2);
        QVERIFY(form.ShockwaveFlash1(0).Shown().contains(QStringLiteral("finestre DCEBF0")));
        QVERIFY(!form.ShockwaveFlash1(0).Shown().contains(QStringLiteral("porta D6BD92")));
    }

    void eachLevelIsFairToTheChild_data() { RowsOfLevels(5); }

    void eachLevelIsFairToTheChild()
    {
        QFETCH(int, level);
        Player player;
        auto &form = player.OpenForManyTasks<FormEs6>(level, 521);
        int judged = 0;
        int twins = 0;
        while (judged < FairTasks) {
            const QList<int> fitting = FiguresThatFit(form);
            QVERIFY(!fitting.isEmpty());
            // Of twins no child could say which one is meant.
            const bool alone = fitting.size() == 1;
            (alone ? judged : twins) += 1;
            const int kept = alone ? fitting.first() : form.FiguraCercata;
            const int right = Esatti;
            for (int figure = 0; figure < form.NumeroFigure; ++figure)
                if (figure != kept)
                    ClickOnFigure(form, figure);
            QCOMPARE(Esatti, right + form.NumeroFigure - 1);
            QCOMPARE(Errati, int16_t{0});
            QVERIFY(form.Command1(0).Enabled());
            ClickOn(form.Command1(0));
            player.Host.TakeEvents();
        }
        qInfo("%d tasks judged, %d with twins passed over", judged, twins);
    }
};

MORLENE_TEST(TestFormEs6)
#include "test_form_es6.moc"
