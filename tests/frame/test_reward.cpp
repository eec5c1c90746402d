// The reward after every tenth right answer, with its known effect on the figures after it.
#include "exercises/form_es1.h"

#include "support/exercise_fixture.h"
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
    explicit Rewards(int count)
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
        Host.Application = m_folder.path() + QLatin1Char('/');
        Host.Seed(9);
    }

    static void AnswerRight(FormEs1 &form)
    {
        if (ModoInput == 0) {
            ClickOn(form.Command1(form.IndiceEsatto));
            return;
        }
        while (form.BottoneScansione != form.IndiceEsatto)
            PressAndRelease(form.PictureScansioneManuale, Qt::Key_Space);
        PressAndRelease(form.PictureScansioneManuale, Qt::Key_Return);
    }
    static void Next(FormEs1 &form)
    {
        if (ModoInput == 0)
            ClickOn(form.Command1(2));
        else
            PressAndRelease(form.PictureScansioneManuale, Qt::Key_Return);
    }
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
        Rewards::AnswerRight(form);
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

    void byScanningTheRewardComesFirst()
    {
        Rewards player(3);
        ModoInput = 1;
        FormEs1 &form = player.BeforeTheReward();
        while (form.BottoneScansione != form.IndiceEsatto)
            PressAndRelease(form.PictureScansioneManuale, Qt::Key_Space);
        player.Host.TakeEvents();
        player.Host.Expect({{3, 2}, {1, 0}});
        PressAndRelease(form.PictureScansioneManuale, Qt::Key_Return);
        const QStringList steps = Steps(player.Host.TakeEvents());
        QCOMPARE(steps.mid(0, 4), QStringList({QStringLiteral("Label1.Caption="),
                                               QStringLiteral("ShockwaveFlash1.Movie=premio 3.swf"),
                                               QStringLiteral("StatusBar1.Panels(1)=10 Esatti"),
                                               QStringLiteral("suono si/1.wav")}));
    }

    void wrongAnswersLevelsAndActivationDoNotDelayIt()
    {
        Rewards player(1);
        SuoniAttivi = false;
        FormEs1 &form = player.BeforeTheReward();
        ClickOn(form.Command1(1 - form.IndiceEsatto));
        form.mnuLiv.OnClick(3);
        form.OnActivate();
        Rewards::AnswerRight(form);
        QCOMPARE(form.Label1.Caption(), QString());
        Rewards::Next(form);
        // The eleventh is not rewarded.
        Rewards::AnswerRight(form);
        QVERIFY(!form.Label1.Caption().isEmpty());
    }

    void aRewardNeedsNoSounds()
    {
        Rewards player(2);
        SuoniAttivi = false;
        FormEs1 &form = player.BeforeTheReward();
        player.Host.Expect({{2, 0}});
        Rewards::AnswerRight(form);
        QVERIFY(form.ShockwaveFlash1.Movie().endsWith(QStringLiteral("\\animazioni\\1.swf")));
    }

    void threeOfFourFiguresAfterARewardStayUnpainted()
    {
        Rewards player(1);
        SuoniAttivi = false;
        FormEs1 &form = player.BeforeTheReward();
        Rewards::AnswerRight(form);
        QList<bool> painted;
        for (int i = 0; i < 8; ++i) {
            Rewards::Next(form);
            painted << Painted(form);
            Rewards::AnswerRight(form);
        }
        QCOMPARE(painted, QList<bool>({true, false, false, false, true, false, false, false}));
    }

    void withoutRewardsTheFirstIsAskedForAndTheRunGoesOn()
    {
        Rewards player(0);
        SuoniAttivi = false;
        FormEs1 &form = player.BeforeTheReward();
        player.Host.Expect({{0, 0}});
        Rewards::AnswerRight(form);
        QVERIFY(form.ShockwaveFlash1.Movie().endsWith(QStringLiteral("\\animazioni\\1.swf")));
        QCOMPARE(form.ShockwaveFlash1.Shown(), QString());
        Rewards::Next(form);
        QVERIFY(Painted(form));
        QVERIFY(!form.Label1.Caption().isEmpty());
    }
};

MORLENE_TEST(TestReward)
#include "test_reward.moc"
