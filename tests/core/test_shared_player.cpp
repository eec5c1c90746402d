// Two users of the machine save one player again and again at the same time: what is read is always
// one of the two as a whole.
#include "core/profile.h"
#include "core/shared_state.h"
#include "platform/base/errors.h"
#include "support/application_folder.h"
#include "support/as_user.h"
#include "support/registered_tests.h"
#include "support/scripted_host.h"

#include <QElapsedTimer>
#include <QTest>

#include <memory>
#include <sys/file.h>

using namespace platform;

namespace {

const QString Folder = QStringLiteral("ImpostazioniProgrammiTesmi/morlenekvt/");
constexpr int Long = 700; // letters; the two profiles differ in length too
constexpr int Short = 7;
constexpr qint64 Playing = 700;      // ms
constexpr qint64 LongestSave = 1500; // ms, on a busy machine too

int LettersOf(int speed)
{
    return speed == 10 ? Long : Short;
}

QByteArray SaveAndRead(int speed)
{
    QElapsedTimer since;
    since.start();
    int saved = 0;
    for (; since.elapsed() < Playing; ++saved) {
        VelocitaScansione = static_cast<int16_t>(speed);
        NomePersonaggio = QString(LettersOf(speed), QLatin1Char('n'));
        SalvaImpostazioni();
        CaricaImpostazioni();
        HOLDS(VelocitaScansione == 10 || VelocitaScansione == 20);
        HOLDS(NomePersonaggio.size() == LettersOf(VelocitaScansione));
        HOLDS(Colori(4, 4) == QStringLiteral("gialle"));
    }
    HOLDS(saved > 10);
    return {};
}

} // namespace

class TestSharedPlayer : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<ScriptedHost> m_host;
    std::unique_ptr<ApplicationFolder> m_folder;
    QByteArray m_file; // native

private Q_SLOTS:
    void init()
    {
        m_host = std::make_unique<ScriptedHost>();
        m_folder = std::make_unique<ApplicationFolder>(*m_host);
        QCOMPARE(::chmod(QFile::encodeName(m_host->Drive.path()).constData(), 01777), 0);
        AzzeraStatoCondiviso();
        ImpostazioniPredefinite();
        FileUtente = QStringLiteral("C:\\ImpostazioniProgrammiTesmi\\morlenekvt\\prova.ini");
        QVERIFY(QDir(m_host->Drive.path()).mkpath(Folder));
        NomePersonaggio = QString(Short, QLatin1Char('n'));
        VelocitaScansione = 20;
        SalvaImpostazioni();
        m_file = QFile::encodeName(m_host->Drive.filePath(Folder + QStringLiteral("prova.ini")));
        QCOMPARE(::chmod(m_file.constData(), 0666), 0);
    }
    void cleanup()
    {
        m_folder.reset();
        m_host.reset();
    }

    void aProgramThatIsStoppedWhileItSavesHoldsNobodyUp()
    {
        const int stopped = ::open(m_file.constData(), O_RDONLY);
        QVERIFY(stopped >= 0);
        QCOMPARE(::flock(stopped, LOCK_EX), 0);
        QElapsedTimer since;
        since.start();
        VelocitaScansione = 30;
        SalvaImpostazioni();
        VelocitaScansione = 4;
        CaricaImpostazioni();
        QVERIFY2(since.elapsed() < LongestSave, qPrintable(QString::number(since.elapsed())));
        QCOMPARE(VelocitaScansione, int16_t(30));
        ::close(stopped);
    }

    void twoUsersWhoSaveOnePlayerAtOnceLoseNothing()
    {
        const pid_t other = ::fork();
        if (other == 0) {
            const QByteArray said = AsUser(SecondUser, SecondUser, [] { return SaveAndRead(20); });
            if (!said.isEmpty())
                qWarning("the other user: %s", said.constData());
            ::_exit(said.isEmpty() ? 0 : 1);
        }
        const QByteArray said = AsUser(FirstUser, FirstUser, [] { return SaveAndRead(10); });
        int status = 0;
        ::waitpid(other, &status, 0);
        QCOMPARE(said, QByteArray());
        QCOMPARE(status, 0);
    }
};

MORLENE_TEST(TestSharedPlayer)
#include "test_shared_player.moc"
