// One program a user: a second one of the same user is told, another user's is free.
#include "platform/files/own_folder.h"
#include "platform/machine/machine_host.h"
#include "support/as_user.h"
#include "support/registered_tests.h"
#include "support/scripted_host.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace platform;

namespace {

// The lock stays until the process ends, and its file longer, as after a crash.
bool IsRefused()
{
    auto *machine = new MachineHost(QStringLiteral("/nonexistent/"));
    return machine->AnotherInstanceRuns();
}

// Whether a further program of the same user is refused.
QByteArray SecondIsRefused()
{
    // A user who is not root stays who he is.
    return AsUser(::geteuid(), ::getegid(), [] {
        HOLDS(IsRefused());
        return QByteArray();
    });
}

} // namespace

class TestLock : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<QTemporaryDir> m_temporary;

    QString Temporary(const QString &name) const { return m_temporary->filePath(name); }
    static void SetRights(const QString &path, mode_t rights)
    {
        QCOMPARE(::chmod(QFile::encodeName(path).constData(), rights), 0);
    }

private Q_SLOTS:
    // Users without a home and without a session, with temporary files that all of them share.
    void init()
    {
        m_temporary.reset();
        qunsetenv("TMPDIR");
        m_temporary = std::make_unique<QTemporaryDir>();
        SetRights(m_temporary->path(), 01777);
        qputenv("TMPDIR", QFile::encodeName(m_temporary->path()));
        qputenv("HOME", "/nonexistent");
        qunsetenv("XDG_RUNTIME_DIR");
    }

    void usersWithoutAFolderOfTheirOwnLockEachForThemselves()
    {
        if (!CanChangeUser())
            QSKIP("needs the right to change the user");
        QCOMPARE(AsUser(FirstUser, FirstUser,
                        [] {
                            HOLDS(!IsRefused());
                            HOLDS(SecondIsRefused() == "");
                            return QByteArray();
                        }),
                 QByteArray());
        QCOMPARE(AsUser(SecondUser, SecondUser,
                        [] {
                            HOLDS(!IsRefused());
                            HOLDS(SecondIsRefused() == "");
                            return QByteArray();
                        }),
                 QByteArray());
        QCOMPARE(AsUser(FirstUser, FirstUser,
                        [] {
                            HOLDS(!IsRefused());
                            return QByteArray();
                        }),
                 QByteArray());
    }

    void whatAnotherUserPutInTheWayIsLeftAlone_data()
    {
        QTest::addColumn<QString>("what");
        for (const char *what : {"folder", "open folder", "file", "link"})
            QTest::newRow(what) << QString::fromLatin1(what);
    }
    void whatAnotherUserPutInTheWayIsLeftAlone()
    {
        QFETCH(QString, what);
        if (!CanChangeUser())
            QSKIP("needs the right to change the user");
        const QString name = Temporary(QStringLiteral("morlenekvt-%1").arg(FirstUser));
        const QString target = Temporary(QStringLiteral("target"));
        QVERIFY(QDir().mkdir(target));
        SetRights(target, 0777);
        if (what == QStringLiteral("file")) {
            QFile file(name);
            QVERIFY(file.open(QIODevice::WriteOnly));
        } else if (what == QStringLiteral("link")) {
            QVERIFY(QFile::link(target, name));
        } else {
            QVERIFY(QDir().mkdir(name));
            SetRights(name, what == QStringLiteral("folder") ? 0755 : 0777);
        }
        QCOMPARE(AsUser(FirstUser, FirstUser,
                        [&] {
                            HOLDS(!IsRefused());
                            HOLDS(SecondIsRefused() == "");
                            HOLDS(OwnFolder() != name + QLatin1Char('/'));
                            HOLDS(QDir(target).isEmpty());
                            return QByteArray();
                        }),
                 QByteArray());
        if (QFileInfo(name).isDir())
            QVERIFY(QDir(name).isEmpty());
    }

    void theSessionsFolderComesFirstAndThenTheCacheInTheHome()
    {
        const QTemporaryDir home;
        qputenv("HOME", QFile::encodeName(home.path()));
        QCOMPARE(OwnFolder(), home.filePath(QStringLiteral(".cache/")));
        QVERIFY(QFileInfo(home.filePath(QStringLiteral(".cache"))).isDir());
        const QTemporaryDir session;
        qputenv("XDG_RUNTIME_DIR", QFile::encodeName(session.path()));
        QCOMPARE(OwnFolder(), session.path() + QLatin1Char('/'));
        // Where others may write, they may take the lock.
        SetRights(session.path(), 0777);
        QCOMPARE(OwnFolder(), home.filePath(QStringLiteral(".cache/")));
        QVERIFY(!QFileInfo::exists(Temporary(QStringLiteral("morlenekvt-%1").arg(::geteuid()))));
    }
};

MORLENE_TEST(TestLock)
#include "test_lock.moc"
