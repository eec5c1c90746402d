// The program is killed at every system call of what it writes by itself, and what is read again is
// what was or what was to be: of a player, of the language, of a first start.
#include "core/profile.h"
#include "core/profile_text.h"
#include "core/shared_state.h"
#include "core/start.h"
#include "language/language.h"
#include "platform/files/files.h"
#include "support/application_folder.h"
#include "support/killed.h"
#include "support/registered_tests.h"
#include "support/scripted_host.h"

#include <QDirIterator>
#include <QTest>

#include <algorithm>
#include <memory>
#include <sys/stat.h>
#include <utility>

using namespace platform;

namespace {

const QString FontBox =
    QStringLiteral("font\n ----------------------- \nFont prodotto da Rinaldo Torvesi\n"
                   "Playwrite Italia Tradizionale, di TypeTogether "
                   "(github.com/TypeTogether/Playwrite), licenza SIL Open Font License 1.1");
const QString Folder = QStringLiteral("ImpostazioniProgrammiTesmi/morlenekvt/");
const QString Profile = Folder + QStringLiteral("prova.ini");
constexpr int FewestCalls = 8; // of anything that opens, writes and closes a file
constexpr mode_t RightsOfFolders = 01777;
constexpr mode_t RightsOfFiles = 0666;

// Lengthens or shortens a profile of that speed.
QByteArray Content(int speed, qsizetype length)
{
    QList<QByteArray> lines = DefaultProfileLines();
    lines[3] = ' ' + QByteArray::number(speed) + ' ';
    lines[42] = QByteArray(length, 'n');
    return ProfileOf(lines);
}

} // namespace

class TestKilled : public QObject {
    Q_OBJECT
private:
    std::unique_ptr<ScriptedHost> m_host;
    std::unique_ptr<ApplicationFolder> m_folder;
    mode_t m_mask = 0;

    // `check` looks after each kill; false when a look failed or nothing could be looked at.
    void KillEverywhere(const std::function<void()> &prepare, const std::function<void()> &piece,
                        const std::function<void(int)> &check)
    {
        for (int call = 1;; ++call) {
            prepare();
            const Fate fate = KilledAtCall(call, piece);
            check(call);
            if (QTest::currentTestFailed()) {
                qWarning("killed at call %d", call);
                return;
            }
            if (fate == Fate::Ended) {
                QVERIFY2(call > FewestCalls, qPrintable(QString::number(call)));
                return;
            }
        }
    }

    // All that the program made can be written by every user of the machine.
    void VerifyRights() const
    {
        QDirIterator all(m_host->Drive.path(), QDir::AllEntries | QDir::NoDotAndDotDot,
                         QDirIterator::Subdirectories);
        while (all.hasNext()) {
            const QString path = all.next();
            struct stat found = {};
            QCOMPARE(::stat(QFile::encodeName(path).constData(), &found), 0);
            const mode_t wanted = all.fileInfo().isDir() ? RightsOfFolders : RightsOfFiles;
            QVERIFY2((found.st_mode & 07777) == wanted, qPrintable(path));
        }
    }

private Q_SLOTS:
    void initTestCase()
    {
        if (KilledAtCall(1, [] {}) == Fate::Refused)
            QSKIP("one process may not watch another here");
    }
    void init()
    {
        m_host = std::make_unique<ScriptedHost>();
        QCOMPARE(::chmod(QFile::encodeName(m_host->Drive.path()).constData(), RightsOfFolders), 0);
        m_folder = std::make_unique<ApplicationFolder>(*m_host);
        m_folder->WriteLanguage("[Strings]\r\n0006=font\r\n0041=profilo\r\n");
        m_folder->Write(QStringLiteral("indis1.ttf"), "font");
        m_mask = ::umask(0077);
        AzzeraStatoCondiviso();
        ImpostazioniPredefinite();
        FileUtente = QStringLiteral("C:\\ImpostazioniProgrammiTesmi\\morlenekvt\\prova.ini");
    }
    void cleanup()
    {
        ::umask(m_mask);
        m_folder.reset();
        m_host.reset();
    }

    void aSavedPlayerIsTheOldOrTheNewOne_data()
    {
        QTest::addColumn<int>("oldLength");
        QTest::addColumn<int>("newLength");
        QTest::newRow("as long") << 6 << 6;
        QTest::newRow("longer") << 6 << 300;
        QTest::newRow("shorter") << 300 << 6;
        QTest::newRow("much longer") << 6 << 20'000;
        QTest::newRow("much shorter") << 20'000 << 6;
    }
    void aSavedPlayerIsTheOldOrTheNewOne()
    {
        QFETCH(int, oldLength);
        QFETCH(int, newLength);
        PreparaCartelle();
        const QByteArray other = Content(7, 7);
        m_host->WriteDriveFile(Folder + QStringLiteral("altro.ini"), other);
        const auto save = [newLength] {
            VelocitaScansione = 20;
            NomePersonaggio = QString(newLength, QLatin1Char('n'));
            SalvaImpostazioni();
        };
        KillEverywhere(
            [&] { m_host->WriteDriveFile(Profile, Content(10, oldLength)); }, save,
            [&](int) {
                CaricaImpostazioni();
                const bool old = VelocitaScansione == 10;
                QVERIFY2(old || VelocitaScansione == 20, "the player has lost everything");
                QCOMPARE(NomePersonaggio.size(), qsizetype(old ? oldLength : newLength));
                QCOMPARE(Colori(4, 4), QStringLiteral("gialle"));
                QCOMPARE(m_host->DriveFile(Folder + QStringLiteral("altro.ini")), other);
                QCOMPARE(QDir(m_host->Drive.filePath(Folder)).entryList(QDir::Files).size(), 2);
                // Whatever was left of it, the next save is whole.
                save();
                QCOMPARE(m_host->DriveFile(Profile), Content(20, newLength));
            });
    }

    void aNewPlayerIsThereOrHasTheDefaultsAndIsEverybodys()
    {
        PreparaCartelle();
        const QString file = m_host->Drive.filePath(Profile);
        int empty = 0;
        KillEverywhere([&] { QFile::remove(file); },
                       [] {
                           VelocitaScansione = 20;
                           SalvaImpostazioni();
                       },
                       [&](int) {
                           empty += QFile::exists(file) && QFileInfo(file).size() == 0 ? 1 : 0;
                           CaricaImpostazioni();
                           QVERIFY(VelocitaScansione == 4 || VelocitaScansione == 20);
                           VerifyRights();
                       });
        // The one thing that is lost so: a name without settings.
        QVERIFY(empty > 0);
    }

    void aReportIsNewUpToWhatTheOldOneHadMore()
    {
        const QString report = QStringLiteral("prova.rpt");
        const auto save = [](char letter, int lines) {
            TextWriter file(QStringLiteral("C:\\prova.rpt"));
            for (int line = 0; line < lines; ++line)
                file.PrintText(QString(10, QLatin1Char(letter)));
            file.Close();
        };
        for (const auto &[oldLines, newLines] : {std::pair(3, 5), std::pair(5, 3)})
            KillEverywhere([&, lines = oldLines] { save('a', lines); },
                           [&, lines = newLines] { save('b', lines); },
                           [&, least = qsizetype{12} * std::min(oldLines, newLines)](int) {
                               // All that both have is of one of the two.
                               const QByteArray found = m_host->DriveFile(report).left(least);
                               QCOMPARE(found.size(), least);
                               QVERIFY(found.contains('a') != found.contains('b'));
                           });
        KillEverywhere([&] { QFile::remove(m_host->Drive.filePath(report)); },
                       [&] { save('b', 3); },
                       [&](int) {
                           const qsizetype size = m_host->DriveFile(report).size();
                           QVERIFY2(size == 0 || size == 36, qPrintable(QString::number(size)));
                       });
    }

    void theLanguageIsTheOldOrTheNewOne()
    {
        for (const QString &language : {QStringLiteral("x"), QStringLiteral("lunghissima")})
            KillEverywhere([&] { m_folder->WriteLanguage("[Strings]\r\n"); },
                           [&] {
                               LinguaCorrente = language;
                               SalvaLinguaCorrente();
                           },
                           [&](int) {
                               LeggiLinguaCorrente();
                               QVERIFY2(LinguaCorrente == language ||
                                            LinguaCorrente == QStringLiteral("prova"),
                                        qPrintable(LinguaCorrente));
                           });
    }

    void aFirstStartIsFinishedByTheNextOne()
    {
        const QString own = m_host->Drive.filePath(QStringLiteral("ImpostazioniProgrammiTesmi"));
        const QString fonts = m_host->Drive.filePath(QStringLiteral("windows"));
        int withoutFont = 0;
        KillEverywhere(
            [&] {
                QVERIFY(QDir(own).removeRecursively());
                QVERIFY(QDir(fonts).removeRecursively());
                QVERIFY(QDir(m_host->Drive.path()).mkpath(QStringLiteral("windows/fonts")));
                for (const QString &folder : {fonts, fonts + QStringLiteral("/fonts")})
                    QCOMPARE(::chmod(QFile::encodeName(folder).constData(), RightsOfFolders), 0);
            },
            [&] {
                m_host->ExpectBox(FontBox);
                PreparaCartelle();
            },
            [&](int) {
                VerifyRights();
                if (!m_host->DriveHas(Folder) &&
                    !m_host->DriveHas(QStringLiteral("windows/fonts/indis1.ttf")))
                    m_host->ExpectBox(FontBox);
                PreparaCartelle();
                VerifyRights();
                QVERIFY(m_host->DriveHas(Folder + QStringLiteral("dati")));
                const QByteArray font =
                    m_host->DriveFile(QStringLiteral("windows/fonts/indis1.ttf"));
                withoutFont += font == "font" ? 0 : 1;
            });
        // The font is looked for only when the settings folder is made, so it can stay away.
        QVERIFY(withoutFont > 0);
    }
};

MORLENE_TEST(TestKilled)
#include "test_killed.moc"
