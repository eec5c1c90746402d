// A settings folder that belongs to somebody else, looked at by an ordinary user.
#include "core/profile.h"
#include "core/shared_state.h"
#include "core/start.h"
#include "core/windows.h"
#include "platform/application.h"
#include "platform/errors.h"
#include "platform/form.h"
#include "support/application_folder.h"
#include "support/as_user.h"
#include "support/registered_tests.h"
#include "support/scripted_host.h"

#include <QTest>

#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

using namespace platform;

namespace {

const QString Own = QStringLiteral("ImpostazioniProgrammiTesmi/morlenekvt");

class Splash : public Form {
public:
    Splash() : Form("FormAvvio", 3000, 3000) {}
};

// Empty when this user cannot write `path` by a plain write.
QByteArray PlainWriteFails(const QString &path)
{
    const int file = ::open(QFile::encodeName(path).constData(), O_WRONLY | O_CREAT, 0666);
    if (file < 0)
        return {};
    ::close(file);
    return "a plain write does not fail here";
}

} // namespace

class TestRights : public QObject {
    Q_OBJECT
private:
    std::unique_ptr<ScriptedHost> m_host;
    std::unique_ptr<ApplicationFolder> m_folder;

    QString Native(const QString &name) const { return m_host->Drive.filePath(name); }
    void Rights(const QString &name, mode_t mode) const
    {
        QCOMPARE(::chmod(QFile::encodeName(Native(name)).constData(), mode), 0);
    }

private Q_SLOTS:
    void init()
    {
        m_host = std::make_unique<ScriptedHost>();
        m_folder = std::make_unique<ApplicationFolder>(*m_host);
        AzzeraStatoCondiviso();
        ImpostazioniPredefinite();
        RegistraFinestra(QStringLiteral("FormAvvio"), []() -> Form * { return new Splash; });
        Rights(QString(), 0755);
        FileUtente = QStringLiteral("C:\\ImpostazioniProgrammiTesmi\\morlenekvt\\prova.ini");
    }
    void cleanup()
    {
        m_folder.reset();
        m_host.reset();
    }

    void aDriveWithoutRightsIsFatalWithThePath()
    {
        const QByteArray said = AsOrdinaryUser([this]() -> QByteArray {
            const QByteArray plain = PlainWriteFails(Native(QStringLiteral("x")));
            if (!plain.isEmpty())
                return plain;
            int number = 0;
            QString text;
            try {
                PreparaCartelle();
            } catch (const RunTimeError &error) {
                number = error.Number();
                text = error.Text();
            }
            if (number != PermissionDenied)
                return "error " + QByteArray::number(number);
            if (!text.contains(Native(QStringLiteral("ImpostazioniProgrammiTesmi"))))
                return "without the path: " + text.toUtf8();
            return {};
        });
        QCOMPARE(said, QByteArray());
        QVERIFY(!m_host->DriveHas(QStringLiteral("ImpostazioniProgrammiTesmi")));
    }

    void theFatalErrorReachesTheTopAndNoWindowComes()
    {
        const QByteArray said = AsOrdinaryUser([this]() -> QByteArray {
            Guarded(Main);
            if (m_host->FatalNumber != PermissionDenied)
                return "fatal " + QByteArray::number(m_host->FatalNumber);
            return Form::Loaded().empty() ? "" : "a window is open";
        });
        QCOMPARE(said, QByteArray());
    }

    void aProfileOfSomebodyElseIsReadAndNotWritten()
    {
        SalvaImpostazioniIn(Own);
        Rights(Own + QStringLiteral("/prova.ini"), 0644);
        const QByteArray before = m_host->DriveFile(Own + QStringLiteral("/prova.ini"));
        const QByteArray said = AsOrdinaryUser([this]() -> QByteArray {
            const QByteArray plain = PlainWriteFails(Native(Own + QStringLiteral("/prova.ini")));
            if (!plain.isEmpty())
                return plain;
            CaricaImpostazioni();
            if (ModoInput != 3)
                return "not read";
            const int number = Skipping([] { SalvaImpostazioni(); });
            return number == PermissionDenied ? "" : "error " + QByteArray::number(number);
        });
        QCOMPARE(said, QByteArray());
        QCOMPARE(m_host->DriveFile(Own + QStringLiteral("/prova.ini")), before);
    }

    void aProfileThatMayNotBeReadGivesDefaults()
    {
        SalvaImpostazioniIn(Own);
        Rights(Own + QStringLiteral("/prova.ini"), 0600);
        const QByteArray said = AsOrdinaryUser([this]() -> QByteArray {
            const QByteArray plain = PlainWriteFails(Native(Own + QStringLiteral("/prova.ini")));
            if (!plain.isEmpty())
                return plain;
            CaricaImpostazioni();
            return ModoInput == 0 ? "" : "read after all";
        });
        QCOMPARE(said, QByteArray());
    }

    void inASharedDriveEachUserWritesTheOthersProfile()
    {
        Rights(QString(), 01777);
        PreparaCartelle();
        struct stat made = {};
        QCOMPARE(::stat(QFile::encodeName(Native(Own)).constData(), &made), 0);
        QCOMPARE(int(made.st_mode & 07777), 01777);
        ModoInput = 1;
        SalvaImpostazioni();
        const QByteArray said = AsOrdinaryUser([]() -> QByteArray {
            ModoInput = 2;
            const int number = Skipping([] { SalvaImpostazioni(); });
            if (number != 0)
                return "error " + QByteArray::number(number);
            FileUtente = QStringLiteral("C:\\ImpostazioniProgrammiTesmi\\morlenekvt\\altro.ini");
            SalvaImpostazioni();
            return {};
        });
        QCOMPARE(said, QByteArray());
        CaricaImpostazioni();
        QCOMPARE(ModoInput, int16_t(2));
        QVERIFY(m_host->DriveHas(Own + QStringLiteral("/altro.ini")));
    }

private:
    void SalvaImpostazioniIn(const QString &folder)
    {
        QVERIFY(QDir(m_host->Drive.path()).mkpath(folder));
        Rights(folder, 0755);
        Rights(QStringLiteral("ImpostazioniProgrammiTesmi"), 0755);
        ModoInput = 3;
        SalvaImpostazioni();
        ModoInput = 9;
    }
};

MORLENE_TEST(TestRights)
#include "test_rights.moc"
