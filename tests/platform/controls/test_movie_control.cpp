// The control that shows a figure: its calls, its frames and what a click reports.
#include "platform/controls/sample.h"

#include "support/hands.h"
#include "support/registered_tests.h"
#include "support/scripted_host.h"

#include <QTest>
#include <QWidget>

using namespace platform;

namespace {

// In the movie control, below the figure.
constexpr QPoint Ground(1, 88);

} // namespace

class TestMovieControl : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void callsBeforeAMovieAreLostAndTheBackgroundStays()
    {
        ScriptedHost host;
        Sample &form = Shown();
        const QString figure = QStringLiteral(SOURCE_DIR "/data/swf/morlene1.swf");
        const auto paint = [&] {
            form.Movie1.SetVariable(QStringLiteral("QualeOggetto"),
                                    QStringLiteral("tetto.interno"));
            form.Movie1.SetVariable(QStringLiteral("TestoColore.QualeColore"),
                                    QStringLiteral("123456"));
            form.Movie1.TSetProperty(QStringLiteral("fumo"), 7, QStringLiteral("0"));
        };
        form.Movie1.SetBGColor(QStringLiteral("ABCDEF"));
        paint();
        QCOMPARE(form.Movie1.Shown(), QString());
        form.Movie1.SetMovie(figure);
        QVERIFY(!form.Movie1.Shown().contains(QStringLiteral("123456")));
        QVERIFY(form.Movie1.Shown().contains(QStringLiteral("fumo 1")));
        paint();
        QVERIFY(form.Movie1.Shown().contains(QStringLiteral("tetto 123456")));
        QVERIFY(form.Movie1.Shown().contains(QStringLiteral("fumo 0")));
        // A new movie loses paint and visibility, and keeps the background.
        form.Movie1.SetMovie(figure);
        QVERIFY(!form.Movie1.Shown().contains(QStringLiteral("123456")));
        QVERIFY(form.Movie1.Shown().contains(QStringLiteral("fumo 1")));
        QCOMPARE(form.Movie1.BGColor(), QStringLiteral("ABCDEF"));
        form.Movie1.SetMovie(QStringLiteral(SOURCE_DIR "/data/swf/nothing.swf"));
        QCOMPARE(form.Movie1.Shown(), QString());
    }

    void framesTellWhatAClickReports()
    {
        ScriptedHost host;
        Sample &form = Shown();
        QStringList commands;
        form.Movie1.OnFSCommand = [&](const QString &command, const QString &) {
            commands << command;
        };
        form.Movie1.SetMovie(QStringLiteral(SOURCE_DIR "/data/swf/morlene1.swf"));
        const QSize size = form.Movie1.Widget()->size();
        const QPoint roof(size.width() / 2, size.height() * 45 / 100);
        form.Movie1.GotoFrame(2);
        QTest::mouseClick(form.Movie1.Widget(), Qt::LeftButton, {}, roof);
        QCOMPARE(commands, QStringList{QStringLiteral("2")});
        QTest::mouseClick(form.Movie1.Widget(), Qt::LeftButton, {}, QPoint(1, size.height() - 2));
        QCOMPARE(commands.size(), 1);
        form.Movie1.GotoFrame(1);
        QTest::mouseClick(form.Movie1.Widget(), Qt::LeftButton, {}, QPoint(1, size.height() - 2));
        QCOMPARE(commands.size(), 2);
    }

    void aQuickSecondPressOnAFigureCountsInEveryFrame()
    {
        ScriptedHost host;
        Sample &form = Shown();
        QStringList commands;
        form.Movie1.OnFSCommand = [&](const QString &command, const QString &) {
            commands << command;
        };
        form.Movie1.SetMovie(QStringLiteral(SOURCE_DIR "/data/swf/morlene1.swf"));
        constexpr int Roof = 2;
        for (const int frame : {0, 1, 2, 3}) {
            commands.clear();
            form.Movie1.GotoFrame(frame);
            ClickTwiceQuickly(form.Movie1, PlaceOfPart(form.Movie1, Roof));
            const QString told = frame >= 2 ? QStringLiteral("2") : QStringLiteral("0");
            QCOMPARE(commands, QStringList({told, told}));
        }
        // Beside the parts, with the other button or disabled it is none.
        commands.clear();
        ClickTwiceQuickly(form.Movie1, Ground);
        form.Movie1.SetEnabled(false);
        ClickTwiceQuickly(form.Movie1, PlaceOfPart(form.Movie1, Roof));
        QCOMPARE(commands, QStringList());
    }

    void theHandStandsOverWhatTakesAClick()
    {
        ScriptedHost host;
        Sample &form = Shown();
        form.Movie1.SetMovie(QStringLiteral(SOURCE_DIR "/data/swf/morlene1.swf"));
        QWidget *view = form.Movie1.Widget();
        // Without a pointer of its own a figure has the window's.
        const auto handAt = [&](const QPoint &place) {
            QTest::mouseMove(view, place);
            QCoreApplication::processEvents();
            return view->testAttribute(Qt::WA_SetCursor);
        };
        const QPoint smoke = PlaceOfPart(form.Movie1, 7);
        for (const int frame : {0, 1, 2, 3}) {
            form.Movie1.GotoFrame(frame);
            for (int part = 1; part <= 8; ++part)
                QCOMPARE(handAt(PlaceOfPart(form.Movie1, part)), frame == 1 || frame == 2);
            QCOMPARE(handAt(Ground), frame == 1);
        }
        // It comes and goes with the part, and a figure that opens anew under it gets it.
        form.Movie1.GotoFrame(2);
        QVERIFY(handAt(smoke));
        form.Movie1.TSetProperty(QStringLiteral("fumo"), 7, QStringLiteral("0"));
        QTRY_VERIFY(!view->testAttribute(Qt::WA_SetCursor));
        form.Movie1.SetMovie(form.Movie1.Movie());
        form.Movie1.GotoFrame(2);
        QVERIFY(view->testAttribute(Qt::WA_SetCursor));
        // What follows in the control, a reward, has the window's pointer.
        form.Movie1.SetMovie(form.Movie1.Movie());
        QVERIFY(!view->testAttribute(Qt::WA_SetCursor));
    }
};

MORLENE_TEST(TestMovieControl)
#include "test_movie_control.moc"
