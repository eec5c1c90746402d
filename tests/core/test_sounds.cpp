// The sounds of an answer: which file is asked for, and what a draw costs.
#include "core/sounds.h"

#include "core/profile.h"
#include "core/shared_state.h"
#include "support/application_folder.h"
#include "support/registered_tests.h"
#include "support/scripted_host.h"

#include <QTest>

#include <memory>

namespace {

// Counts how often anybody asks where the files lie.
class CountingHost : public ScriptedHost {
public:
    QString ApplicationFolder() override
    {
        ++Asked;
        return ScriptedHost::ApplicationFolder();
    }
    QString DriveRoot() override
    {
        ++Asked;
        return ScriptedHost::DriveRoot();
    }
    void PlaySound(const QString &nativePath) override
    {
        ScriptedHost::PlaySound(nativePath);
        Played << nativePath;
    }
    int Asked = 0;
    QStringList Played;
};

} // namespace

class TestSounds : public QObject {
    Q_OBJECT
private:
    std::unique_ptr<CountingHost> m_host;
    std::unique_ptr<ApplicationFolder> m_folder;

    void Sounds(const char *folder, std::initializer_list<const char *> names)
    {
        for (const char *name : names)
            m_folder->Write(
                QStringLiteral("suoni/%1/%2").arg(QLatin1String(folder), QLatin1String(name)), "x");
    }
    QString Native(const char *name) const
    {
        return m_folder->Path(QStringLiteral("suoni/") + QLatin1String(name));
    }

private Q_SLOTS:
    void init()
    {
        m_host = std::make_unique<CountingHost>();
        m_folder = std::make_unique<ApplicationFolder>(*m_host);
        AzzeraStatoCondiviso();
        SuoniAttivi = true;
    }
    void cleanup()
    {
        m_folder.reset();
        m_host.reset();
    }

    void rightAndWrongHaveTheirFolders()
    {
        Sounds("si", {"1.wav", "2.wav", "3.wav"});
        Sounds("no", {"1.wav", "2.wav"});
        m_host->Expect({{3, 2}, {2, 0}});
        SuonoEsatto();
        SuonoErrato();
        QCOMPARE(m_host->Played, QStringList({Native("si/3.wav"), Native("no/1.wav")}));
    }

    void withoutSoundsThereIsNoDrawAndNoLookAtTheFolder()
    {
        Sounds("si", {"1.wav"});
        SuoniAttivi = false;
        m_host->Asked = 0;
        SuonoEsatto();
        SuonoErrato();
        QCOMPARE(m_host->Asked, 0);
        QCOMPARE(m_host->Played, QStringList());
    }

    void oneFileIsAlwaysThatFile()
    {
        Sounds("no", {"1.wav"});
        m_host->Seed(1);
        for (int i = 0; i < 10; ++i)
            SuonoErrato();
        QCOMPARE(m_host->Played.count(Native("no/1.wav")), 10);
    }

    void theCountDecidesAndNotTheNames()
    {
        Sounds("si", {"1.wav", "2.wav", "4.wav"});
        m_host->Expect({{3, 2}});
        SuonoEsatto();
        QCOMPARE(m_host->Played, QStringList(Native("si/3.wav")));
    }

    void aFolderCountsAndOtherFilesDoNot()
    {
        Sounds("si", {"1.wav", "2.WAV", "3.mp3", "x.wav/4.wav", "y/5.wav"});
        m_host->Expect({{3, 0}});
        SuonoEsatto();
    }

    void anEmptyOrMissingFolderAsksForTheFirstAndSpendsADraw()
    {
        m_host->Expect({{0, 0}, {0, 0}});
        SuonoEsatto();
        Sounds("no", {"leggimi.txt"});
        SuonoErrato();
        QCOMPARE(m_host->Played, QStringList({Native("si/1.wav"), Native("no/1.wav")}));
    }

    void aFileAddedWhileTheProgramRunsCounts()
    {
        Sounds("si", {"1.wav"});
        m_host->Expect({{1, 0}, {2, 1}});
        SuonoEsatto();
        Sounds("si", {"2.wav"});
        SuonoEsatto();
        QCOMPARE(m_host->Played.last(), Native("si/2.wav"));
    }
};

MORLENE_TEST(TestSounds)
#include "test_sounds.moc"
