// "Colora la morlena": the part that is marked, and its colour that moves.
#include "exercises/form_es4.h"

#include "exercises/painting_fixture.h"
#include "support/registered_tests.h"

#include <QImage>
#include <QPixmap>
#include <QTest>

using namespace platform;

class TestFormEs4Scanning : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void scanningMarksThePartAndChangesItsColour_data() { RowsOfModes({1, 2, 3}); }

    void scanningMarksThePartAndChangesItsColour()
    {
        QFETCH(int, mode);
        Player player;
        ModoInput = static_cast<int16_t>(mode);
        ColorePulsantiSelezionati = 0x00AABBCC;
        player.Host.Expect(PaintingTask({2, 2, 2, 2, 2, 2}) + Order({2}));
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
        player.Host.Expect(PaintingTask(AllGreen) + Order({2}));
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

    void aTaskDoneByScanningWaitsForTheChild_data()
    {
        QTest::addColumn<int>("level");
        QTest::addColumn<int>("mode");
        for (int level = 1; level <= 6; ++level)
            for (const int mode : {1, 2, 3})
                QTest::addRow("level %d, mode %d", level, mode) << level << mode;
    }

    void aTaskDoneByScanningWaitsForTheChild()
    {
        QFETCH(int, level);
        QFETCH(int, mode);
        Player player;
        SuoniAttivi = false;
        ModoInput = static_cast<int16_t>(mode);
        player.Host.Seed(3);
        auto &form = player.Open<FormEs4>();
        ChooseLevel(form, level);
        for (int part = 1; part <= 6; ++part) {
            QCOMPARE(Esatti, part - 1);
            do
                Step(player.Host, form);
            while (!form.Soluzioni(form.Colorati(form.QualeParte), form.QualeParte));
            Choose(form);
        }
        QCOMPARE(Esatti, 6);
        QCOMPARE(form.ColoreCorrente, int16_t{99});
        QCOMPARE(form.Command1(0).BackColor(), ToColor(ColoreBottoni));
        QCOMPARE(form.Command1(1).BackColor(), ToColor(ColorePulsantiSelezionati));
        // On the high levels the buttons stay as they were.
        QCOMPARE(form.Command1(1).Enabled(), level <= 3);
        const QString figure = form.ShockwaveFlash1.Shown();
        for (int step = 0; step < 5; ++step)
            Step(player.Host, form);
        QCOMPARE(form.ColoreCorrente, int16_t{99});
        QCOMPARE(form.ShockwaveFlash1.Shown(), figure);
        Choose(form);
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
        player.Host.Expect(PaintingTask(AllGreen) + Order({5}));
        auto &form = player.Open<FormEs4>();
        const auto seen = [&] { return form.ShockwaveFlash1.Widget()->grab().toImage(); };
        const QImage door = seen();
        player.Host.Expect(PaintingTask(AllGreen) + Order({2}));
        ChooseLevel(form, 1);
        const QImage roof = seen();
        QVERIFY(roof != door);
        // Back at the first part the house looks as at first, and so it does on a high level.
        player.Host.Expect(PaintingTask(AllGreen) + Order({5}));
        ChooseLevel(form, 1);
        QVERIFY(seen() == door);
        player.Host.Expect(PaintingTask(AllGreen) + Order({1, 2, 3, 4, 5, 6, 2}));
        ChooseLevel(form, 4);
        QVERIFY(seen() == roof);
        player.Host.Expect(PaintingTask(AllGreen) + Order({1, 2, 3, 4, 5, 6, 5}));
        ChooseLevel(form, 5);
        QVERIFY(seen() == door);
    }
};

MORLENE_TEST(TestFormEs4Scanning)
#include "test_form_es4_scanning.moc"
