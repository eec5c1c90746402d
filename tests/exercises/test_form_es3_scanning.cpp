// "Uguali - 2°": the outlines of the second house that light up in turn.
#include "exercises/form_es3.h"

#include "exercises/differences_fixture.h"
#include "support/registered_tests.h"

#include <QImage>
#include <QPixmap>
#include <QTest>

using namespace platform;

class TestFormEs3Scanning : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aHeldSwitchFreezesTheOutlineAndChoosesWhenItIsReleased()
    {
        Player player;
        SuoniAttivi = false;
        ModoInput = 2;
        player.Host.Expect(Colouring(AllGreen, 0, 0) + QList<ScriptedDraw>{{6, 2}, {4, 1}});
        auto &form = player.Open<FormEs3>();
        player.Host.Advance(1900);
        QCOMPARE(form.PosizioneScansione, int16_t{2});
        QTest::keyPress(form.PictureScansioneAutomatica.Widget(), Qt::Key_Space);
        const QImage frozen = form.ShockwaveFlash2.Widget()->grab().toImage();
        player.Host.Advance(9000);
        QCOMPARE(form.PosizioneScansione, int16_t{2});
        QCOMPARE(form.ShockwaveFlash2.Widget()->grab().toImage(), frozen);
        QCOMPARE(Esatti + Errati, 0);
        QTest::keyRelease(form.PictureScansioneAutomatica.Widget(), Qt::Key_Space);
        QCOMPARE(Errati, int16_t{1});
        // The next step comes a full interval after the release.
        player.Host.Advance(999);
        QCOMPARE(form.PosizioneScansione, int16_t{2});
        player.Host.Advance(1);
        QCOMPARE(form.PosizioneScansione, int16_t{3});
        QVERIFY(form.ShockwaveFlash2.Widget()->grab().toImage() != frozen);
    }

    void inScanningSmokeAndCloudsAreAlwaysThereAndNeverDiffer_data() { RowsOfModes({1, 2, 3}); }
    void inScanningSmokeAndCloudsAreAlwaysThereAndNeverDiffer()
    {
        QFETCH(int, mode);
        Player player;
        SuoniAttivi = false;
        ModoInput = static_cast<int16_t>(mode);
        // They are drawn and overruled; the parts come of six.
        player.Host.Expect(Colouring(AllGreen, 0, 0) + QList<ScriptedDraw>{{6, 1}, {4, 1}});
        auto &form = player.Open<FormEs3>();
        for (const MovieControl *figure : {&form.ShockwaveFlash1, &form.ShockwaveFlash2})
            QVERIFY(figure->Shown().endsWith(QStringLiteral("fumo 1, nuvole 1")));
        QVERIFY(!player.Host.DrawsLeft());
        // The light comes to them, and they are a miss.
        for (int part = 2; part <= 8; ++part) {
            Step(player.Host, form);
            QCOMPARE(form.PosizioneScansione, static_cast<int16_t>(part));
            if (part >= 7)
                Choose(form);
        }
        QCOMPARE(Errati, int16_t{2});
        player.Host.Seed(8);
        for (int task = 0; task < 200; ++task) {
            ChooseLevel(form, 4);
            NumeroEserciziEseguiti = 1;
            QCOMPARE(DifferencesShown(form).size(), 4);
            QVERIFY(DifferencesShown(form).last() <= 6);
        }
    }

    void theHighlightIsAnOutlineOfTheSecondFigure()
    {
        Player player;
        ModoInput = 3;
        ColorePulsantiSelezionati = 0x00AABBCC;
        player.Host.Expect(Colouring(AllGreen, 0, 0) + QList<ScriptedDraw>{{6, 1}, {4, 1}});
        auto &form = player.Open<FormEs3>();
        player.Host.TakeEvents();
        QCOMPARE(form.PosizioneScansione, int16_t{1});
        PressAndRelease(form.PictureScansioneManuale, Qt::Key_Right);
        const QStringList events = player.Host.TakeEvents();
        QCOMPARE(events.size(), 18);
        QCOMPARE(events.at(0), QStringLiteral("ShockwaveFlash2.SetVariable=QualeOggetto "
                                              "comignolo.contorno"));
        QCOMPARE(events.at(1),
                 QStringLiteral("ShockwaveFlash2.SetVariable=TestoColore.QualeColore 000000"));
        QCOMPARE(events.at(14), QStringLiteral("ShockwaveFlash2.SetVariable=QualeOggetto "
                                               "nuvole.contorno"));
        QCOMPARE(events.at(16), QStringLiteral("ShockwaveFlash2.SetVariable=QualeOggetto "
                                               "tetto.contorno"));
        QCOMPARE(events.at(17),
                 QStringLiteral("ShockwaveFlash2.SetVariable=TestoColore.QualeColore CCBBAA"));
        // Round over eight parts, both ways.
        PressAndRelease(form.PictureScansioneManuale, Qt::Key_Left);
        PressAndRelease(form.PictureScansioneManuale, Qt::Key_Up);
        QCOMPARE(form.PosizioneScansione, int16_t{8});
        PressAndRelease(form.PictureScansioneManuale, Qt::Key_Down);
        QCOMPARE(form.PosizioneScansione, int16_t{1});
    }

    void scanningRepairsTheSecondFigureAndThenWaits_data() { RowsOfModes({1, 2, 3}); }

    void scanningRepairsTheSecondFigureAndThenWaits()
    {
        QFETCH(int, mode);
        Player player;
        SuoniAttivi = false;
        ModoInput = static_cast<int16_t>(mode);
        player.Host.Expect(Colouring(AllGreen, 0, 0) + QList<ScriptedDraw>{{6, 1}, {4, 1}});
        auto &form = player.Open<FormEs3>();
        player.Host.Expect(Colouring(AllGreen, 0, 0) +
                           QList<ScriptedDraw>{{6, 1}, {4, 1}, {6, 2}, {4, 1}});
        ChooseLevel(form, 2);
        const auto step = [&] { Step(player.Host, form); };
        const auto choose = [&] { Choose(form); };
        choose();
        QCOMPARE(Errati, int16_t{1});
        step();
        choose();
        QCOMPARE(Esatti, 1);
        QVERIFY(form.ShockwaveFlash2.Shown().contains(QStringLiteral("tetto 00FF00")));
        QCOMPARE(form.PosizioneScansione, int16_t{2});
        // Repaired it is no difference any more, unlike by pointer.
        choose();
        QCOMPARE(Errati, int16_t{2});
        step();
        choose();
        QCOMPARE(Esatti, 2);
        QCOMPARE(form.PosizioneScansione, int16_t{9});
        QCOMPARE(form.Command1(0).BackColor(), ToColor(ColorePulsantiSelezionati));
        QVERIFY(!form.Command1(0).Enabled());
        step();
        QCOMPARE(form.PosizioneScansione, int16_t{9});
        player.Host.Expect(Colouring(AllGreen, 0, 0) +
                           QList<ScriptedDraw>{{6, 1}, {4, 1}, {6, 2}, {4, 1}});
        choose();
        QCOMPARE(form.PosizioneScansione, int16_t{1});
        QCOMPARE(form.Command1(0).BackColor(), ToColor(ColoreBottoni));
        QCOMPARE(Esatti, 2);
    }

    void aRightChoiceTakesItsStepsInOrderAndTheLastOutlineStaysLit()
    {
        Player player;
        ModoInput = 3;
        player.Host.Expect(Colouring(AllGreen, 0, 0) + QList<ScriptedDraw>{{6, 0}, {4, 1}});
        auto &form = player.Open<FormEs3>();
        player.Host.TakeEvents();
        player.Host.Expect({{6, 2}});
        Choose(form);
        const QStringList events = player.Host.TakeEvents();
        QCOMPARE(events.first(), QStringLiteral("ShockwaveFlash2.BGColor=FFFFCC"));
        QCOMPARE(events.filter(QStringLiteral("ShockwaveFlash2.SetVariable")).size(), 12);
        QCOMPARE(events.mid(events.size() - 3),
                 QStringList({QStringLiteral("StatusBar1.Panels(1)=1 Esatti"),
                              QStringLiteral("Command1(0).BackColor=000000ff"),
                              QStringLiteral("suono si/3.wav")}));
        // Waiting on the button, no key moves the light or puts it out.
        for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Down, Qt::Key_Left, Qt::Key_Up})
            PressAndRelease(form.PictureScansioneManuale, key);
        QCOMPARE(player.Host.TakeEvents(), QStringList());
        // The next task begins at the chimney again, the only part that is lit.
        player.Host.Expect(Colouring(AllGreen, 0, 0) + QList<ScriptedDraw>{{6, 3}, {4, 1}});
        Choose(form);
        const QStringList task = player.Host.TakeEvents();
        const QStringList outlines = task.mid(task.size() - 18);
        QCOMPARE(outlines.filter(QStringLiteral("QualeColore 000000")).size(), 8);
        QCOMPARE(outlines.mid(16),
                 QStringList({QStringLiteral("ShockwaveFlash2.SetVariable=QualeOggetto "
                                             "comignolo.contorno"),
                              QStringLiteral("ShockwaveFlash2.SetVariable="
                                             "TestoColore.QualeColore FF0000")}));
    }

    void aLevelChosenWhileWaitingLeavesTheButtonColoured()
    {
        Player player;
        SuoniAttivi = false;
        ModoInput = 1;
        player.Host.Expect(Colouring(AllGreen, 0, 0) + QList<ScriptedDraw>{{6, 0}, {4, 1}});
        auto &form = player.Open<FormEs3>();
        PressAndRelease(form.PictureScansioneManuale, Qt::Key_Return);
        QCOMPARE(form.PosizioneScansione, int16_t{9});
        player.Host.Seed(4);
        ChooseLevel(form, 1);
        QCOMPARE(form.PosizioneScansione, int16_t{1});
        QCOMPARE(form.Command1(0).BackColor(), ToColor(ColorePulsantiSelezionati));
    }
};

MORLENE_TEST(TestFormEs3Scanning)
#include "test_form_es3_scanning.moc"
