// The real host: where the program's own files lie.
#include "platform/machine/machine_host.h"

#include "platform/host/host.h"
#include "support/registered_tests.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

using namespace platform;

class TestMachineHost : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // It may be started from anywhere.
    void theFoldersAreFoundWhateverTheWorkingFolder()
    {
        const QTemporaryDir drive;
        const QTemporaryDir elsewhere;
        MachineHost machine(drive.path() + QLatin1Char('/'));
        const QString before = QDir::currentPath();
        QVERIFY(QDir::setCurrent(elsewhere.path()));
        const QString application = machine.ApplicationFolder();
        const QString root = machine.DriveRoot();
        QVERIFY(QDir::setCurrent(before));
        QVERIFY(application.endsWith(QLatin1Char('/')));
        QVERIFY(QFileInfo::exists(application + QStringLiteral("platform_machine")));
        QCOMPARE(root, drive.path() + QLatin1Char('/'));
    }
};

MORLENE_TEST(TestMachineHost)
#include "test_machine_host.moc"
