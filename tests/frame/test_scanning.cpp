// Scanning in the three modes without a mouse, on the first exercise.
#include "frame/scanning.h"

#include "exercises/exercise_table.h"
#include "exercises/form_es1.h"
#include "platform/machine/application.h"
#include "support/exercise_fixture.h"
#include "support/hands.h"
#include "support/registered_tests.h"

#include <QMenuBar>
#include <QTest>

using namespace platform;

namespace {

// Something to choose from and to close.
class Pictures : public platform::Form {
public:
    Pictures() : Form("Form1", 3000, 3000) {}
};

class Child : public Player {
public:
    explicit Child(int mode, int16_t speed = 4)
    {
        SuoniAttivi = false;
        ModoInput = static_cast<int16_t>(mode);
        VelocitaScansione = speed;
        Host.Seed(4);
        Form = &Open<FormEs1>();
        Host.TakeEvents();
    }

    QList<int> Lit() const
    {
        QList<int> lit;
        for (Button &button : Form->Command1)
            if (button.BackColor() == ToColor(ColorePulsantiSelezionati))
                lit << button.Index();
        return lit;
    }

    PictureBox &Target() const
    {
        return ModoInput == 2 ? Form->PictureScansioneAutomatica : Form->PictureScansioneManuale;
    }
    void Key(Qt::Key key) const { PressAndRelease(Target(), key); }
    // Brings the highlight to the right or the wrong button, and chooses it.
    void Answer(bool right) const
    {
        const int wanted = right ? Form->IndiceEsatto : 1 - Form->IndiceEsatto;
        while (Form->BottoneScansione != wanted)
            if (ModoInput == 2)
                const_cast<ScriptedHost &>(Host).Advance(Form->Timer1.Interval());
            else
                Key(ModoInput == 1 ? Qt::Key_Space : Qt::Key_Right);
        Key(ModoInput == 2 ? Qt::Key_Space : Qt::Key_Return);
    }

    FormEs1 *Form;
};

} // namespace

class TestScanning : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theFirstButtonIsLitAtOnce()
    {
        for (const int mode : {1, 2, 3}) {
            const Child child(mode);
            QCOMPARE(child.Lit(), QList<int>{0});
            QVERIFY(child.Form->Timer1.Enabled());
            QCOMPARE(child.Form->Timer1.Interval(), mode == 2 ? 1000 : 100);
            QCOMPARE(child.Form->Command1(2).MousePointer(), platform::MousePointer::Default);
        }
    }

    void modeOneStepsBySpaceAndChoosesByEnter()
    {
        const Child child(1);
        child.Key(Qt::Key_Space);
        QCOMPARE(child.Lit(), QList<int>{1});
        // The next-task button is disabled and passed over.
        child.Key(Qt::Key_Space);
        QCOMPARE(child.Lit(), QList<int>{0});
        for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Left, Qt::Key_Up, Qt::Key_Down})
            child.Key(key);
        QCOMPARE(child.Lit(), QList<int>{0});
        child.Answer(true);
        QCOMPARE(Esatti, 1);
        QCOMPARE(child.Lit(), QList<int>{2});
        child.Key(Qt::Key_Space);
        QCOMPARE(child.Lit(), QList<int>{2});
        child.Key(Qt::Key_Return);
        QCOMPARE(child.Lit(), QList<int>{0});
        QCOMPARE(Esatti, 1);
    }

    void modeThreeStepsByArrowsBothWays()
    {
        const Child child(3);
        child.Key(Qt::Key_Left);
        QCOMPARE(child.Lit(), QList<int>{1});
        child.Key(Qt::Key_Up);
        QCOMPARE(child.Lit(), QList<int>{0});
        child.Key(Qt::Key_Down);
        QCOMPARE(child.Lit(), QList<int>{1});
        child.Key(Qt::Key_Right);
        QCOMPARE(child.Lit(), QList<int>{0});
        child.Key(Qt::Key_Space);
        QCOMPARE(child.Lit(), QList<int>{0});
        child.Answer(true);
        for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Left, Qt::Key_Up, Qt::Key_Down})
            child.Key(key);
        QCOMPARE(child.Lit(), QList<int>{2});
        child.Key(Qt::Key_Return);
        QCOMPARE(child.Lit(), QList<int>{0});
    }

    void modeTwoStepsByItselfAndChoosesBySpace()
    {
        Child child(2);
        child.Host.Advance(999);
        QCOMPARE(child.Lit(), QList<int>{0});
        child.Host.Advance(1);
        QCOMPARE(child.Lit(), QList<int>{1});
        child.Host.Advance(1000);
        QCOMPARE(child.Lit(), QList<int>{0});
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Right, Qt::Key_Left})
            child.Key(key);
        QCOMPARE(child.Lit(), QList<int>{0});
        QCOMPARE(Esatti + Errati, 0);
        child.Answer(true);
        QCOMPARE(child.Lit(), QList<int>{2});
        // The highlight waits on the next-task button.
        child.Host.Advance(10000);
        QCOMPARE(child.Lit(), QList<int>{2});
        child.Key(Qt::Key_Space);
        QCOMPARE(child.Lit(), QList<int>{0});
    }

    void aHeldSwitchFreezesAndTheNextTickComesAFullIntervalAfterRelease()
    {
        Child child(2);
        // A task in which the choice of the first button is a miss, so that the scanning goes on.
        while (child.Form->IndiceEsatto == 0)
            ChooseLevel(*child.Form, 1);
        child.Host.Advance(900);
        QTest::keyPress(child.Target().Widget(), Qt::Key_Space);
        child.Host.Advance(5000);
        QCOMPARE(child.Lit(), QList<int>{0});
        QCOMPARE(Errati, int16_t{0});
        QTest::keyRelease(child.Target().Widget(), Qt::Key_Space);
        QCOMPARE(Errati, int16_t{1});
        child.Host.Advance(999);
        QCOMPARE(child.Lit(), QList<int>{0});
        child.Host.Advance(1);
        QCOMPARE(child.Lit(), QList<int>{1});
    }

    void theHighlightStaysAsManyQuartersOfASecondAsThePlayerWants_data()
    {
        QTest::addColumn<int>("speed");
        for (const int speed : {1, 4, 7, 131})
            QTest::addRow("%d quarters", speed) << speed;
    }
    void theHighlightStaysAsManyQuartersOfASecondAsThePlayerWants()
    {
        QFETCH(int, speed);
        Child child(2, static_cast<int16_t>(speed));
        for (int step = 1; step <= 4; ++step) {
            child.Host.Advance(speed * 250 - 1);
            QCOMPARE(child.Lit(), QList<int>{(step - 1) % 2});
            child.Host.Advance(1);
            QCOMPARE(child.Lit(), QList<int>{step % 2});
        }
    }

    void underAModalWindowTheTimerRunsAndTheKeyboardStays()
    {
        Child child(2);
        RegistraFinestra(QStringLiteral("Form1"), []() -> Form * { return new Pictures; });
        child.Target().Widget()->clearFocus();
        child.Host.ExpectModal([&](Form &form) {
            child.Host.Advance(1000);
            QCOMPARE(child.Lit(), QList<int>{1});
            QVERIFY(!child.Target().HasFocus());
            QCOMPARE(child.Host.FatalNumber, 0);
            form.Unload();
        });
        QTest::keyClick(child.Form->Window(), Qt::Key_P, Qt::ControlModifier);
        // The exercise began anew, and the next tick takes the keyboard again.
        QCOMPARE(child.Lit(), QList<int>{0});
        child.Host.Advance(1000);
        QVERIFY(child.Target().HasFocus());
    }

    void aSwitchHeldIntoTheMenuStartsNothingThere()
    {
        Child child(2);
        RegistraEsercizi();
        QTest::keyPress(child.Target().Widget(), Qt::Key_Space);
        child.Form->mnuEsci.OnClick();
        auto *menu = dynamic_cast<FormMenu *>(Form::Find(QStringLiteral("FormMenu")));
        QVERIFY(menu != nullptr);
        child.Host.Advance(1000);
        QWidget *target = menu->PictureScansioneAutomatica.Widget();
        for (int repeat = 0; repeat < 10; ++repeat)
            QTest::keyPress(target, Qt::Key_Space);
        QTest::keyRelease(target, Qt::Key_Space);
        QCOMPARE(Form::Loaded(), std::vector<Form *>{menu});
        // Pressed anew it chooses.
        QTest::keyClick(target, Qt::Key_Space);
        QVERIFY(Form::Loaded() != std::vector<Form *>{menu});
    }

    // A colour of a damaged setting, which no control takes.
    void aFailingTickOrMoveOfTheMouseIsPassedOver()
    {
        constexpr double NoColour = 1e12;
        {
            Child child(2);
            ColorePulsantiSelezionati = NoColour;
            child.Host.Advance(3000);
            QCOMPARE(child.Host.FatalNumber, 0);
            QVERIFY(child.Form->Timer1.Enabled());
            ColorePulsantiSelezionati = 255;
            child.Host.Advance(1000);
            QCOMPARE(child.Lit().size(), 1);
        }
        Child child(0);
        ColorePulsantiSelezionati = NoColour;
        MoveOver(child.Form->Command1(0));
        QCOMPARE(child.Host.FatalNumber, 0);
        ColorePulsantiSelezionati = 255;
        MoveOver(child.Form->Command1(1));
        QCOMPARE(child.Lit(), QList<int>{1});
        ColoreBottoni = NoColour;
        MoveOver(child.Form->Label1);
        QTest::mouseMove(child.Form->Client(), QPoint(2, 2));
        QCoreApplication::processEvents();
        QCOMPARE(child.Host.FatalNumber, 0);
        QCOMPARE(child.Lit(), QList<int>{1});
    }

    void aSwitchReleasedElsewhereDoesNotStopTheScanning()
    {
        Child child(2);
        child.Target().SetFocus();
        QTest::keyPress(child.Target().Widget(), Qt::Key_Space);
        child.Target().Widget()->clearFocus();
        child.Host.Advance(1000);
        QCOMPARE(child.Lit(), QList<int>{1});
        QCOMPARE(Esatti + Errati, 0);
    }

    void aRightChoiceTakesItsStepsInOrder()
    {
        Child child(1);
        SuoniAttivi = true;
        while (child.Form->BottoneScansione != child.Form->IndiceEsatto)
            child.Key(Qt::Key_Space);
        const QString button = QStringLiteral("Command1(%1)").arg(child.Form->IndiceEsatto);
        child.Host.TakeEvents();
        child.Host.Expect({{6, 0}});
        child.Key(Qt::Key_Return);
        // The answer buttons stay enabled here.
        QCOMPARE(child.Host.TakeEvents(),
                 QStringList({QStringLiteral("StatusBar1.Panels(1)=1 Esatti"),
                              QStringLiteral("suono si/1.wav"),
                              button + QStringLiteral(".BackColor=8000000f"),
                              QStringLiteral("Command1(2).BackColor=000000ff")}));
        QVERIFY(child.Form->Command1(0).Enabled());
        QVERIFY(!child.Form->Command1(2).Enabled());
    }

    void aWrongChoiceKeepsTheHighlight()
    {
        for (const int mode : {1, 2, 3}) {
            const Child child(mode);
            child.Answer(false);
            QCOMPARE(Errati, int16_t{1});
            QCOMPARE(Esatti, 0);
            QCOMPARE(child.Lit(), QList<int>{1 - child.Form->IndiceEsatto});
        }
    }

    void aLevelChosenWhileWaitingLeavesTheHighlightOnTheNextTask()
    {
        const Child child(1);
        child.Answer(true);
        ChooseLevel(*child.Form, 2);
        QCOMPARE(child.Lit(), QList<int>{2});
        child.Key(Qt::Key_Space);
        QCOMPARE(child.Lit(), QList<int>{2});
        child.Key(Qt::Key_Return);
        QCOMPARE(child.Lit(), QList<int>{0});
    }

    void theKeyboardIsTakenBackTenTimesASecond()
    {
        for (const int mode : {1, 3}) {
            Child child(mode);
            child.Target().Widget()->clearFocus();
            child.Host.Advance(99);
            QVERIFY(!child.Target().HasFocus());
            child.Host.Advance(1);
            QVERIFY(child.Target().HasFocus());
        }
        Child child(2);
        child.Target().Widget()->clearFocus();
        child.Host.Advance(1000);
        QVERIFY(child.Target().HasFocus());
    }

    void nothingTicksWhileTheKeyboardIsWhereItBelongs()
    {
        for (const int mode : {1, 3}) {
            Child child(mode);
            child.Host.Advance(200);
            QCOMPARE(child.Host.Waiting(), 0);
            child.Target().Widget()->clearFocus();
            QCOMPARE(child.Host.Waiting(), 1);
            child.Host.Advance(200);
            QCOMPARE(child.Host.Waiting(), 0);
            QVERIFY(child.Target().HasFocus());
        }
        Child child(2);
        child.Host.Advance(2000);
        QCOMPARE(child.Host.Waiting(), 1);
    }

    void withTheMenuBarInUseTheFocusStaysAndTheHighlightGoesOn()
    {
        Child child(2);
        child.Form->MenuBar()->setFocus();
        child.Host.Advance(1000);
        QVERIFY(!child.Target().HasFocus());
        QCOMPARE(child.Lit(), QList<int>{1});
        QCOMPARE(child.Host.FatalNumber, 0);
        child.Form->MenuBar()->clearFocus();
        child.Host.Advance(1000);
        QVERIFY(child.Target().HasFocus());
    }

    void aStepGoesRoundPastWhatIsDisabled()
    {
        QCOMPARE(PassoCircolare(1, 3, 1, [](int) { return true; }), 2);
        QCOMPARE(PassoCircolare(2, 3, 1, [](int i) { return i != 0; }), 1);
        QCOMPARE(PassoCircolare(0, 3, -1, [](int i) { return i != 2; }), 1);
        QCOMPARE(PassoCircolare(1, 3, 1, [](int) { return false; }), 1);
    }

    void theHighlightsColourIsTurnedRoundForAMovie()
    {
        const QList<QPair<double, const char *>> colours = {
            {0x000000FF, "FF0000"},
            {0x00AABBCC, "CCBBAA"},
            {0x00000012, "120000"},
            {0, "000000"},
            {0x00F00000, "0000F0"},
            // A system colour has eight digits, of which the first six are looked at.
            {-2147483633.0, "000080"},
        };
        for (const auto &[colour, text] : colours) {
            ColorePulsantiSelezionati = colour;
            QCOMPARE(TrovaColoreScansione(), QLatin1String(text));
        }
        AzzeraProfilo();
    }

    void aSpeedAbove131OverflowsAtActivation()
    {
        VelocitaScansione = 131;
        QCOMPARE(IntervalloScansione(), 32750);
        Player player;
        player.Host.Seed(1);
        ModoInput = 2;
        VelocitaScansione = 132;
        auto *form = new FormEs1;
        Guarded([&] { form->Show(); });
        QCOMPARE(player.Host.FatalNumber, 6);
    }

    void theResizeOfModeTwoUnloadsTheMenu()
    {
        Player player;
        player.Host.Seed(1);
        ModoInput = 2;
        MostraFinestra(QStringLiteral("FormMenu"));
        player.Open<FormEs1>();
        QVERIFY(Form::Find(QStringLiteral("FormMenu")) == nullptr);
    }
};

MORLENE_TEST(TestScanning)
#include "test_scanning.moc"
