// The reward after every tenth right answer, with its known effect on the figures after it.
#include "exercises/form_es1.h"

#include "support/exercise_fixture.h"
#include "support/hands.h"
#include "support/registered_tests.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTest>

using namespace platform;

namespace {

// An application folder with the product's texts and figure, and so many rewards of the test's own.
class Rewards : public Player {
public:
    explicit Rewards(int count, bool withFolder = true)
    {
        const QString product = Host.Application;
        for (const char *folder : {"lngmorlene", "swf", "animazioni", "suoni/si", "suoni/no"})
            QDir().mkpath(m_folder.filePath(QString::fromLatin1(folder)));
        for (const char *name : {"lngmorlene/italiano.lng", "lngmorlene/LangSetting.ini",
                                 "swf/morlene1.svg", "suoni/si/1.wav", "suoni/no/1.wav"})
            QFile::copy(product + QLatin1String(name),
                        m_folder.filePath(QString::fromLatin1(name)));
        for (int i = 1; i <= count; ++i)
            QFile::copy(product + QStringLiteral("swf/morlena0.svg"),
                        m_folder.filePath(QStringLiteral("animazioni/%1.svg").arg(i)));
        if (!withFolder)
            QDir().rmdir(m_folder.filePath(QStringLiteral("animazioni")));
        Host.Application = m_folder.path() + QLatin1Char('/');
        Host.Seed(9);
    }

    // Brings the light to the right answer, without a mouse.
    void Light(const FormEs1 &form)
    {
        while (ModoInput != 0 && form.BottoneScansione != form.IndiceEsatto) {
            if (ModoInput == 2)
                Host.Advance(form.Timer1.Interval());
            else
                PressAndRelease(form.PictureScansioneManuale,
                                ModoInput == 1 ? Qt::Key_Space : Qt::Key_Left);
        }
    }
    void AnswerRight(const FormEs1 &form)
    {
        Light(form);
        Choose(form, form.IndiceEsatto);
    }
    static void Next(const FormEs1 &form) { Choose(form, 2); }
    // Nine right answers, and the task of the tenth.
    FormEs1 &BeforeTheReward()
    {
        auto &form = Open<FormEs1>();
        for (int i = 0; i < 9; ++i) {
            AnswerRight(form);
            Next(form);
        }
        Host.TakeEvents();
        return form;
    }

private:
    // The button under the pointer, or the one with the light.
    static void Choose(const FormEs1 &form, int button)
    {
        if (ModoInput == 0)
            ClickOn(form.Command1(button));
        else if (ModoInput == 2)
            PressAndRelease(form.PictureScansioneAutomatica, Qt::Key_Space);
        else
            PressAndRelease(form.PictureScansioneManuale, Qt::Key_Return);
    }

    QTemporaryDir m_folder;
};

bool Painted(const FormEs1 &form)
{
    for (const char *colour : {"00FF00", "FF0000", "0000FF", "FFFF00"})
        if (form.ShockwaveFlash1.Shown().contains(QLatin1String(colour)))
            return true;
    return false;
}

QStringList Steps(QStringList events)
{
    for (QString &event : events)
        event.replace(QRegularExpression(QStringLiteral("Movie=.*animazioni.")),
                      QStringLiteral("Movie=premio "));
    return events;
}

} // namespace

class TestReward : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void byPointerThePanelAndTheSoundComeFirst()
    {
        Rewards player(3);
        FormEs1 &form = player.BeforeTheReward();
        player.Host.Expect({{1, 0}, {3, 1}});
        player.AnswerRight(form);
        QCOMPARE(Steps(player.Host.TakeEvents()),
                 QStringList({QStringLiteral("StatusBar1.Panels(1)=10 Esatti"),
                              QStringLiteral("suono si/1.wav"),
                              QStringLiteral("Command1(0).Enabled=False"),
                              QStringLiteral("Command1(1).Enabled=False"),
                              QStringLiteral("Label1.Caption="),
                              QStringLiteral("ShockwaveFlash1.Movie=premio 2.swf"),
                              QStringLiteral("Command1(2).Enabled=True")}));
        QCOMPARE(form.Label1.Caption(), QString());
    }

    void byScanningTheRewardComesFirst_data() { RowsOfModes({1, 2, 3}); }
    void byScanningTheRewardComesFirst()
    {
        QFETCH(int, mode);
        Rewards player(3);
        ModoInput = static_cast<int16_t>(mode);
        FormEs1 &form = player.BeforeTheReward();
        player.Light(form);
        player.Host.TakeEvents();
        player.Host.Expect({{3, 2}, {1, 0}});
        player.AnswerRight(form);
        QStringList steps = Steps(player.Host.TakeEvents());
        // The switch stops the light and lets it go on.
        steps.removeIf(
            [](const QString &step) { return step.startsWith(QStringLiteral("Timer1.")); });
        QCOMPARE(steps.mid(0, 4), QStringList({QStringLiteral("Label1.Caption="),
                                               QStringLiteral("ShockwaveFlash1.Movie=premio 3.swf"),
                                               QStringLiteral("StatusBar1.Panels(1)=10 Esatti"),
                                               QStringLiteral("suono si/1.wav")}));
    }

    // A child need not watch to the end: the next task takes the figure back.
    void theNextTaskCutsTheRewardOff_data() { RowsOfModes({0, 1, 2, 3}); }
    void theNextTaskCutsTheRewardOff()
    {
        QFETCH(int, mode);
        Rewards player(1);
        SuoniAttivi = false;
        ModoInput = static_cast<int16_t>(mode);
        FormEs1 &form = player.BeforeTheReward();
        player.AnswerRight(form);
        QVERIFY(form.ShockwaveFlash1.Movie().contains(QStringLiteral("animazioni")));
        // The light waits on the next task while the reward plays.
        player.Host.Advance(9000);
        QCOMPARE(form.BottoneScansione, int16_t(mode == 0 ? 0 : 2));
        player.Next(form);
        QVERIFY(form.ShockwaveFlash1.Movie().endsWith(QStringLiteral("\\swf\\morlene1.swf")));
        QVERIFY(Painted(form));
        QVERIFY(!form.Label1.Caption().isEmpty());
        QCOMPARE(Esatti, 10);
    }

    void theTwentiethIsRewardedAgain()
    {
        Rewards player(1);
        SuoniAttivi = false;
        FormEs1 &form = player.BeforeTheReward();
        QList<int> rewarded;
        for (int answer = 10; answer <= 30; ++answer) {
            player.AnswerRight(form);
            if (form.ShockwaveFlash1.Movie().contains(QStringLiteral("animazioni")))
                rewarded << answer;
            player.Next(form);
        }
        QCOMPARE(rewarded, QList<int>({10, 20, 30}));
    }

    void wrongAnswersLevelsAndActivationDoNotDelayIt()
    {
        Rewards player(1);
        SuoniAttivi = false;
        FormEs1 &form = player.BeforeTheReward();
        ClickOn(form.Command1(1 - form.IndiceEsatto));
        ChooseLevel(form, 3);
        form.OnActivate();
        player.AnswerRight(form);
        QCOMPARE(form.Label1.Caption(), QString());
        player.Next(form);
        // The eleventh is not rewarded.
        player.AnswerRight(form);
        QVERIFY(!form.Label1.Caption().isEmpty());
    }

    void aRewardNeedsNoSounds()
    {
        Rewards player(2);
        SuoniAttivi = false;
        FormEs1 &form = player.BeforeTheReward();
        player.Host.Expect({{2, 0}});
        player.AnswerRight(form);
        QVERIFY(form.ShockwaveFlash1.Movie().endsWith(QStringLiteral("\\animazioni\\1.swf")));
    }

    void threeOfFourFiguresAfterARewardStayUnpainted()
    {
        Rewards player(1);
        SuoniAttivi = false;
        FormEs1 &form = player.BeforeTheReward();
        player.AnswerRight(form);
        QList<bool> painted;
        for (int i = 0; i < 8; ++i) {
            player.Next(form);
            painted << Painted(form);
            player.AnswerRight(form);
        }
        QCOMPARE(painted, QList<bool>({true, false, false, false, true, false, false, false}));
    }

    void withoutRewardsTheFirstIsAskedForAndTheRunGoesOn_data()
    {
        QTest::addColumn<bool>("withFolder");
        QTest::addColumn<int>("mode");
        for (const bool withFolder : {true, false})
            for (const int mode : {0, 2})
                QTest::addRow("%s, mode %d", withFolder ? "an empty folder" : "no folder", mode)
                    << withFolder << mode;
    }
    void withoutRewardsTheFirstIsAskedForAndTheRunGoesOn()
    {
        QFETCH(bool, withFolder);
        QFETCH(int, mode);
        Rewards player(0, withFolder);
        SuoniAttivi = false;
        ModoInput = static_cast<int16_t>(mode);
        FormEs1 &form = player.BeforeTheReward();
        player.Host.Expect({{0, 0}});
        player.AnswerRight(form);
        QVERIFY(form.ShockwaveFlash1.Movie().endsWith(QStringLiteral("\\animazioni\\1.swf")));
        QCOMPARE(form.ShockwaveFlash1.Shown(), QString());
        player.Next(form);
        QVERIFY(Painted(form));
        QVERIFY(!form.Label1.Caption().isEmpty());
    }
};

MORLENE_TEST(TestReward)
#include "test_reward.moc"
