// Windows designed once and scaled to any screen: by their tags, from the design each time, and
// past properties that cannot be set.
#include "support/cls_resize.h"

#include "core/shared_state.h"
#include "platform/base/errors.h"
#include "platform/controls/combo_box.h"
#include "platform/controls/label.h"
#include "platform/controls/menu.h"
#include "platform/controls/shape.h"
#include "platform/controls/status_bar.h"
#include "platform/controls/timer.h"
#include "support/registered_tests.h"
#include "support/scripted_host.h"

#include <QTest>
#include <QWidget>

#include <memory>
#include <vector>

using namespace platform;

namespace {

constexpr double Twips = 15; // a logical pixel

// Geometry without a widget; the next settings of `Failing` raise an error.
class Fake : public Control {
public:
    using Control::Control;
    double Left() const override { return X; }
    double Top() const override { return Y; }
    double Width() const override { return W; }
    double Height() const override { return H; }
    void SetLeft(double value) override { Set('L', X, value); }
    void SetTop(double value) override { Set('T', Y, value); }
    void SetWidth(double value) override { Set('W', W, value); }
    void SetHeight(double value) override { Set('H', H, value); }

    double X = 0;
    double Y = 0;
    double W = 0;
    double H = 0;
    char Failing = ' ';
    std::vector<int> Errors; // one for each setting that fails
    QString Tried;

private:
    void Set(char what, double &field, double value)
    {
        Tried += QLatin1Char(what);
        if (what == Failing && !Errors.empty()) {
            const int number = Errors.front();
            Errors.erase(Errors.begin());
            throw RunTimeError(number);
        }
        field = value;
    }
};

// A control of which only one place can be read.
class Narrow : public Control {
public:
    using Control::Control;
    double Top() const override { return 600; }
    void SetLeft(double value) override { Sets.push_back(value); }
    void SetTop(double value) override { Sets.push_back(value); }
    std::vector<double> Sets;
};

class FragileLine : public Line {
public:
    using Line::Line;
    void SetX1(double twips) override
    {
        if (Failures-- > 0)
            throw RunTimeError(InvalidPropertyValue);
        Line::SetX1(twips);
    }
    int Failures = 0;
};

Place PlaceOf(const Control &control)
{
    return {control.Left(), control.Top(), control.Width(), control.Height()};
}

class Designed : public Form {
public:
    Designed()
        : Form("Prova", 7200, 5400), Label1({*this, "Label1"}, {120, 240, 3000, 1501}),
          Combo1({*this, "Combo1"}, {120, 3000, 2000, 315}),
          Line1({*this, "Line1"}, 100, 200, 700, 900), Timer1({*this, "Timer1"}, 100)
    {
        OnResize = [this] { Rescaler.ResizeControls(); };
        Rescaler.SetSourceForm(*this);
    }
    void Fill(int width, int height) { Move(0, 0, width * Twips, height * Twips); }

    Label Label1;
    ComboBox Combo1;
    FragileLine Line1;
    Timer Timer1;
    clsResize Rescaler;
};

class Empty : public Form {
public:
    Empty() : Form("Vuota", 3000, 3000) {}
};

// A window of fakes, 6000 by 3000 twips by design, grown to twice the width and three times the
// height.
class FakeWindow : public Form {
public:
    FakeWindow() : Form("Finta", 6000, 3000), First({*this, "First"}), Second({*this, "Second"})
    {
        First.X = First.Y = First.W = First.H = 600;
        Second.X = Second.Y = Second.W = Second.H = 900;
        Rescaler.SetSourceForm(*this);
        Rescaler.ReInitialise();
        Move(0, 0, 12000, 9000);
    }
    Fake First;
    Fake Second;
    clsResize Rescaler;
};

} // namespace

#define COMPARE_PLACE(control, left, top, width, height)                                           \
    do {                                                                                           \
        const Place found = PlaceOf(control);                                                      \
        QCOMPARE(found.Left, double(left));                                                        \
        QCOMPARE(found.Top, double(top));                                                          \
        QCOMPARE(found.Width, double(width));                                                      \
        QCOMPARE(found.Height, double(height));                                                    \
    } while (false)

class TestClsResize : public QObject {
    Q_OBJECT
private:
    std::unique_ptr<ScriptedHost> m_host;

private Q_SLOTS:
    void init()
    {
        m_host = std::make_unique<ScriptedHost>();
        AzzeraStatoCondiviso();
    }
    void cleanup() { m_host.reset(); }

    void everyScreenGivesItsExactPlacesAndBackAgain()
    {
        Designed window;
        window.Rescaler.SizeFormToScreen(75);
        window.Show();
        const std::vector<std::pair<int, int>> sizes = {{1024, 768},  {1366, 768},  {1920, 1080},
                                                        {3840, 2160}, {1920, 1080}, {1366, 768},
                                                        {1024, 768},  {480, 360},   {1024, 768}};
        for (const auto &[width, height] : sizes) {
            window.Fill(width, height);
            const double across = width * Twips / 7200;
            const double down = height * Twips / 5400;
            COMPARE_PLACE(window.Label1, 120 * across, 240 * down, 3000 * across, 1501 * down);
            QCOMPARE(window.Label1.Font(), Font());
            // The list's own height stays.
            QCOMPARE(window.Combo1.Top(), 3000 * down);
            QCOMPARE(window.Combo1.Width(), 2000 * across);
            QCOMPARE(window.Line1.X1(), 100 * across);
            QCOMPARE(window.Line1.Y1(), 200 * down);
            QCOMPARE(window.Line1.X2(), 700 * across);
            QCOMPARE(window.Line1.Y2(), 900 * down);
        }
    }

    void theDesignedSizeIsThatUnderTheMenuBar()
    {
        class WithMenu : public Form {
        public:
            WithMenu()
                : Form("Menu", 6000, 6000), mnuFile({*this, "mnuFile"}, QStringLiteral("&File")),
                  Label1({*this, "Label1"}, {600, 600, 600, 600})
            {
            }
            MenuItem mnuFile;
            Label Label1;
        } window;
        clsResize rescaler;
        rescaler.SetSourceForm(window);
        const double designed = window.ScaleHeight();
        rescaler.SizeFormToScreen(75);
        QVERIFY(window.ScaleHeight() < window.Height());
        QCOMPARE(window.Label1.Top(), 600 * (window.ScaleHeight() / designed));
    }

    void aWindowTakesItsShareOfTheScreenCentred()
    {
        m_host->ScreenSizeNow = {1366, 768};
        Designed window;
        window.Rescaler.SizeFormToScreen(75);
        // 75% of 20490 by 11520 twips, the whole part, in the middle.
        QCOMPARE(window.Left(), (20490 - 15367) / 2.0);
        QCOMPARE(window.Top(), (11520 - 8640) / 2.0);
        QCOMPARE(window.Height(), 8640.0);
        QVERIFY(qAbs(window.Width() - 15367) <= Twips / 2);
        // The design is measured before.
        QCOMPARE(window.Label1.Top(), 240 * (window.ScaleHeight() / 5400));
    }

    void theDesignIsMeasuredOnceUnlessAsked()
    {
        Designed window;
        window.Rescaler.SizeFormToScreen(75);
        window.Label1.SetLeft(1);
        window.Rescaler.ResizeControls();
        QCOMPARE(window.Label1.Left(), 120 * (window.ScaleWidth() / 7200));
        window.Label1.SetLeft(1000.5);
        window.Rescaler.ReInitialise();
        window.Rescaler.ResizeControls();
        QCOMPARE(window.Label1.Left(), 1000.0); // a whole number, halves to even
    }

    void theFirstResizeMeasuresByItself()
    {
        FakeWindow window;
        clsResize rescaler;
        rescaler.SetSourceForm(window);
        rescaler.ResizeControls(); // measures what is there: nothing moves
        COMPARE_PLACE(window.First, 600, 600, 600, 600);
        window.Move(0, 0, 6000, 9000);
        rescaler.ResizeControls();
        COMPARE_PLACE(window.First, 300, 600, 300, 600);
    }

    void designedValuesAreRoundedHalvesToEven()
    {
        FakeWindow window;
        window.Move(0, 0, 6000, 3000);
        window.First.X = 100.5;
        window.First.Y = 101.5;
        window.First.W = 0.4;
        window.First.H = 99.6;
        window.Rescaler.ReInitialise();
        window.Move(0, 0, 12000, 9000);
        window.Rescaler.ResizeControls();
        COMPARE_PLACE(window.First, 200, 306, 0, 300);
    }

    void aTagSaysWhatIsScaled_data()
    {
        QTest::addColumn<QString>("tag");
        QTest::addColumn<QString>("scaled");
        QTest::newRow("none") << ""
                              << "LTWH";
        QTest::newRow("all") << "@L,T,W,H"
                             << "LTWH";
        QTest::newRow("place only") << "@L,T"
                                    << "LT";
        QTest::newRow("small letters") << "@l,t"
                                       << "LT";
        QTest::newRow("any order") << "@H T"
                                   << "TH";
        QTest::newRow("within a word") << "@WHAT"
                                       << "TWH";
        QTest::newRow("nothing") << "@"
                                 << "";
        QTest::newRow("without the sign") << "L,T"
                                          << "LTWH";
        QTest::newRow("sign not ahead") << " @L"
                                        << "LTWH";
    }
    void aTagSaysWhatIsScaled()
    {
        QFETCH(QString, tag);
        QFETCH(QString, scaled);
        FakeWindow window;
        window.First.SetTag(tag);
        window.Rescaler.ResizeControls();
        QCOMPARE(window.First.Tried, scaled);
        COMPARE_PLACE(window.First, scaled.contains('L') ? 1200 : 600,
                      scaled.contains('T') ? 1800 : 600, scaled.contains('W') ? 1200 : 600,
                      scaled.contains('H') ? 1800 : 600);
    }

    void aLinesTagMovesOnlyThatEnd()
    {
        Designed window;
        window.Line1.SetTag(QStringLiteral("@W,H"));
        window.Rescaler.ReInitialise();
        window.Fill(960, 1080); // twice as wide, three times as high
        window.Rescaler.ResizeControls();
        QCOMPARE(window.Line1.X1(), 100.0);
        QCOMPARE(window.Line1.Y1(), 200.0);
        QCOMPARE(window.Line1.X2(), 1400.0);
        QCOMPARE(window.Line1.Y2(), 2700.0);
    }

    void aPropertyThatCannotBeSetIsPassedOver_data()
    {
        QTest::addColumn<int>("number");
        for (const int number : {383, 387, 393, 438})
            QTest::addRow("%d", number) << number;
    }
    void aPropertyThatCannotBeSetIsPassedOver()
    {
        QFETCH(int, number);
        FakeWindow window;
        window.First.Failing = 'T';
        window.First.Errors = {number};
        window.Rescaler.ResizeControls();
        QCOMPARE(window.First.Tried, QStringLiteral("LTWH"));
        COMPARE_PLACE(window.First, 1200, 600, 1200, 1800);
        COMPARE_PLACE(window.Second, 1800, 2700, 1800, 2700);
    }

    void anyOtherErrorTriesTheSameStatementAgain_data()
    {
        QTest::addColumn<int>("number");
        for (const int number : {5, 6, 11, 340, 343, 380})
            QTest::addRow("%d", number) << number;
    }
    void anyOtherErrorTriesTheSameStatementAgain()
    {
        QFETCH(int, number);
        for (const char what : {'L', 'T', 'W', 'H'}) {
            FakeWindow window;
            window.First.Failing = what;
            window.First.Errors = {number, number, number};
            window.Rescaler.ResizeControls();
            const QString all = QStringLiteral("LTWH");
            QCOMPARE(window.First.Tried,
                     QString(all).replace(QLatin1Char(what), QString(4, QLatin1Char(what))));
            COMPARE_PLACE(window.First, 1200, 1800, 1200, 1800);
        }
    }

    void aLineThatFailsOnceIsTriedAgain()
    {
        Designed window;
        window.Rescaler.ReInitialise();
        window.Fill(960, 360);
        window.Line1.Failures = 1;
        window.Rescaler.ResizeControls();
        QCOMPARE(window.Line1.X1(), 200.0);
    }

    void whatHasNoPlaceKeepsZeros()
    {
        FakeWindow window;
        Narrow narrow({window, "Narrow"});
        window.Move(0, 0, 6000, 3000);
        window.Rescaler.ReInitialise();
        window.Move(0, 0, 12000, 9000);
        window.Rescaler.ResizeControls();
        // Left could not be read, so it is 0; Width and Height cannot be set.
        QCOMPARE(narrow.Sets, std::vector<double>({0.0, 1800.0}));
    }

    void aDockedBarKeepsToTheFoot()
    {
        class WithBar : public Form {
        public:
            WithBar() : Form("Barra", 6000, 3000), StatusBar1({*this, "StatusBar1"}, {}, 3) {}
            StatusBar StatusBar1;
        } window;
        window.StatusBar1.SetHeight(300);
        clsResize rescaler;
        rescaler.SetSourceForm(window);
        window.OnResize = [&] { rescaler.ResizeControls(); };
        rescaler.SizeFormToScreen(75);
        window.Show();
        window.Move(0, 0, 12000, 9000);
        QCOMPARE(window.StatusBar1.Left(), 0.0);
        QCOMPARE(window.StatusBar1.Width(), 12000.0);
        QCOMPARE(window.StatusBar1.Top() + window.StatusBar1.Height(), 9000.0);
    }

    void aWindowWithoutControlsIsNotMeasured()
    {
        Empty window;
        clsResize rescaler;
        rescaler.SetSourceForm(window);
        rescaler.ResizeControls();
        window.Move(0, 0, 6000, 6000);
        // Measured only now, with a control: its design is the present size.
        Fake late({window, "Late"});
        late.X = 500;
        rescaler.ResizeControls();
        QCOMPARE(late.X, 500.0);
    }

    void aMinimisedWindowIsLeftAndRightAgainWhenRestored()
    {
        Designed window;
        window.Rescaler.SizeFormToScreen(75);
        window.Show();
        window.Fill(960, 720);
        QCOMPARE(window.Label1.Left(), 240.0);
        window.Window()->setWindowState(Qt::WindowMinimized);
        QVERIFY(window.Minimised());
        window.Label1.SetLeft(7);
        window.Rescaler.ResizeControls();
        QCOMPARE(window.Label1.Left(), 7.0);
        window.Window()->setWindowState(Qt::WindowNoState);
        window.Fill(1920, 1440);
        QCOMPARE(window.Label1.Left(), 480.0);
    }

    void aWindowThatIsGoneIsNoOperation()
    {
        auto *window = new Designed;
        window->Show();
        Ridimensionatore = std::make_shared<clsResize>();
        Ridimensionatore->SetSourceForm(*window);
        Ridimensionatore->ResizeControls();
        QVERIFY(Ridimensionatore->SourceForm() == window);
        window->Drop();
        QVERIFY(Ridimensionatore->SourceForm() == nullptr);
        Ridimensionatore->ResizeControls();
        DropForms();
        Ridimensionatore->ResizeControls();
        Ridimensionatore->SizeFormToScreen(75);
        Ridimensionatore->ReInitialise();
        // Without a window at all likewise.
        clsResize none;
        none.ReInitialise();
        none.SizeFormToScreen(75);
        none.ResizeControls();
        QVERIFY(none.SourceForm() == nullptr);
    }

    void aControlTakenAwayIsPassedOver()
    {
        FakeWindow window;
        auto gone = std::make_unique<Fake>(ControlId{window, "Gone"});
        window.Rescaler.ReInitialise();
        gone.reset();
        window.Move(0, 0, 24000, 9000);
        window.Rescaler.ResizeControls();
        QCOMPARE(window.First.X, 1200.0);
    }

    void drawingIsLockedMeanwhileAndFreeAfterwards()
    {
        class Watcher : public Fake {
        public:
            using Fake::Fake;
            void SetLeft(double) override { Locked = !Parent().Window()->updatesEnabled(); }
            bool Locked = false;
        };
        FakeWindow window;
        Watcher watcher({window, "Watcher"});
        window.Rescaler.ReInitialise();
        window.Rescaler.ResizeControls();
        QVERIFY(watcher.Locked);
        QVERIFY(window.Window()->updatesEnabled());
    }
};

MORLENE_TEST(TestClsResize)
#include "test_cls_resize.moc"
