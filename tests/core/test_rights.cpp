// A settings folder that belongs to somebody else, looked at by an ordinary user.
#include "core/profile.h"
#include "core/shared_state.h"
#include "core/sounds.h"
#include "core/start.h"
#include "core/windows.h"
#include "platform/base/errors.h"
#include "platform/controls/form.h"
#include "platform/machine/application.h"
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

    void aFontsFolderWithoutRightsIsLeftSilently()
    {
        m_folder->Write(QStringLiteral("indis1.ttf"), "font");
        QCOMPARE(::chmod(QFile::encodeName(m_folder->Path(QString())).constData(), 0755), 0);
        QVERIFY(QDir(m_host->Drive.path()).mkpath(QStringLiteral("windows/fonts")));
        Rights(QStringLiteral("windows"), 0755);
        Rights(QStringLiteral("windows/fonts"), 0755);
        Rights(QString(), 01777);
        const QString font = QStringLiteral("windows/fonts/indis1.ttf");
        const QByteArray said = AsOrdinaryUser([&]() -> QByteArray {
            const QByteArray plain = PlainWriteFails(Native(font));
            if (!plain.isEmpty())
                return plain;
            if (!QFile(m_folder->Path(QStringLiteral("indis1.ttf"))).open(QIODevice::ReadOnly))
                return "the font itself cannot be read";
            Guarded(Main);
            if (m_host->FatalNumber != 0)
                return "fatal " + QByteArray::number(m_host->FatalNumber);
            if (!m_host->Events.filter(QStringLiteral("box ")).isEmpty())
                return "a box";
            return Form::Find(QStringLiteral("FormAvvio")) != nullptr ? "" : "no splash";
        });
        QCOMPARE(said, QByteArray());
        QVERIFY(m_host->DriveHas(Own + QStringLiteral("/dati")));
        QVERIFY(!m_host->DriveHas(font));
    }

    void aFolderThatCannotBeLookedIntoIsNotThere()
    {
        QVERIFY(QDir(m_host->Drive.path()).mkpath(QStringLiteral("chiusa/dentro")));
        QVERIFY(EsisteCartella(QStringLiteral("C:\\chiusa\\dentro")));
        Rights(QStringLiteral("chiusa"), 0700);
        const QByteArray said = AsOrdinaryUser([]() -> QByteArray {
            bool there = true;
            const int number =
                Skipping([&] { there = EsisteCartella(QStringLiteral("C:\\chiusa\\dentro")); });
            if (number != 0)
                return "error " + QByteArray::number(number);
            return there ? "found after all" : "";
        });
        QCOMPARE(said, QByteArray());
    }

    void aSoundsFolderThatCannotBeListedCountsAsEmpty()
    {
        SuoniAttivi = true;
        m_folder->Write(QStringLiteral("suoni/si/1.wav"), "x");
        m_folder->Write(QStringLiteral("suoni/si/2.wav"), "x");
        for (const QString &name : {QString(), QStringLiteral("suoni")})
            QCOMPARE(::chmod(QFile::encodeName(m_folder->Path(name)).constData(), 0755), 0);
        const QString folder = m_folder->Path(QStringLiteral("suoni/si"));
        QCOMPARE(::chmod(QFile::encodeName(folder).constData(), 0700), 0);
        const QByteArray said = AsOrdinaryUser([&]() -> QByteArray {
            const QByteArray plain = PlainWriteFails(folder + QStringLiteral("/3.wav"));
            if (!plain.isEmpty())
                return plain;
            m_host->Expect({{0, 0}});
            const int number = Skipping([] { SuonoEsatto(); });
            if (number != 0)
                return "error " + QByteArray::number(number);
            return m_host->Events.join(QLatin1Char(' ')).toUtf8();
        });
        QCOMPARE(said, QByteArray("suono si/1.wav"));
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
