// Rights on the drive that all users of the machine share, links, special files, and full disks.
#include "support/folder_host.h"

#include "platform/files/files.h"
#include "platform/files/ini.h"
#include "support/as_user.h"
#include "support/registered_tests.h"

#include <QTest>

#include <csignal>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/sysmacros.h>

using namespace platform;

namespace {

constexpr gid_t Group = 34567;
constexpr mode_t AllRights = 07777;

QString S(const char *text)
{
    return QString::fromUtf8(text);
}

struct stat Stat(const QString &native)
{
    struct stat what = {};
    if (::lstat(native.toUtf8().constData(), &what) != 0)
        what.st_mode = 0;
    return what;
}

mode_t RightsOf(const QString &native)
{
    return Stat(native).st_mode & AllRights;
}

void SetRights(const QString &native, mode_t rights)
{
    if (::chmod(native.toUtf8().constData(), rights) != 0)
        qFatal("the test could not set rights");
}

// A host whose drive every user reaches, with rights of its own.
class SharedHost : public FolderHost {
public:
    explicit SharedHost(mode_t rights, gid_t group = static_cast<gid_t>(-1))
    {
        SetRights(Outside(QString()), 0755);
        if (group != static_cast<gid_t>(-1) &&
            ::chown(Drive.toUtf8().constData(), static_cast<uid_t>(-1), group) != 0)
            qFatal("the test could not set a group");
        SetRights(Drive, rights);
    }
};

void Write(const QString &path, const QString &line)
{
    TextWriter file(path);
    file.PrintText(line);
    file.Close();
}

} // namespace

class TestFileRights : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aDriveForAllGivesFilesAndFoldersForAll();
    void aDriveForAGroupGivesFilesAndFoldersForTheGroup();
    void theGroupIsTakenWithoutTheSetGroupBitToo();
    void whatAPersonChoseOutsideTheDriveFollowsTheMask();
    void onePlayerSavesTheFileOfAnother();
    void aNewFileOfAnotherUserIsWrittenByTheSecond();
    void whatMayNotBeWrittenIsRefusedAndStays();
    void whatMayNotBeReadIsRefused();
    void aLinkOnTheDriveIsNeverFollowed();
    void aLinkedFolderOnTheDriveIsNeverEntered();
    void specialFilesAreRefusedAtOnce();
    void aDeviceIsRefused();
    void aLinkInTheApplicationFolderIsFollowed();
    void aLanguageSettingMayLieOnTheDrive();
    void aLinkThatLeadsNowhereMakesNothing();
    void anOverlongFileKeepsItsOldContent();
    void aFullDiskKeepsTheOldContent();
};

void TestFileRights::aDriveForAllGivesFilesAndFoldersForAll()
{
    SharedHost host(01777);
    const QByteArray verdict = AsUser(FirstUser, FirstUser, [&] {
        for (const mode_t mask : {mode_t{0}, mode_t{022}, mode_t{077}, mode_t{0777}}) {
            ::umask(mask);
            const QString folder = S("C:\\a") + QString::number(mask);
            CreateFolder(folder);
            Write(folder + S("\\file.ini"), S("x"));
            CopyFile(folder + S("\\file.ini"), folder + S("\\copy"));
            WriteIni(folder + S("\\setting.ini"), S("A"), S("b"), S("c"));
            const QString native = NativePath(folder);
            HOLDS(RightsOf(native) == 01777);
            HOLDS(RightsOf(native + S("/file.ini")) == 0666);
            HOLDS(RightsOf(native + S("/copy")) == 0666);
            HOLDS(RightsOf(native + S("/setting.ini")) == 0666);
            // A look at the mask sets it: it must be the one from before.
            HOLDS(::umask(0) == mask);
        }
        return QByteArray();
    });
    QCOMPARE(verdict, QByteArray());
}

void TestFileRights::aDriveForAGroupGivesFilesAndFoldersForTheGroup()
{
    if (!CanChangeUser())
        QSKIP("needs the right to make a group's folder");
    SharedHost host(02770, Group);
    const QByteArray verdict = AsUser(FirstUser, FirstUser, [&] {
        HOLDS(ErrorOf([] { Write(QStringLiteral("C:\\file"), QString()); }) == 70);
        HOLDS(!FolderExists(S("C:\\a")));
        return QByteArray();
    });
    QCOMPARE(verdict, QByteArray());
    const QByteArray member = AsUser(SecondUser, Group, [&] {
        ::umask(077);
        CreateFolder(S("C:\\a"));
        Write(S("C:\\a\\file"), S("x"));
        HOLDS(RightsOf(host.Drive + S("a")) == 02770);
        HOLDS(Stat(host.Drive + S("a")).st_gid == Group);
        HOLDS(RightsOf(host.Drive + S("a/file")) == 0660);
        HOLDS(Stat(host.Drive + S("a/file")).st_gid == Group);
        return QByteArray();
    });
    QCOMPARE(member, QByteArray());
}

void TestFileRights::theGroupIsTakenWithoutTheSetGroupBitToo()
{
    if (!CanChangeUser())
        QSKIP("needs the right to make a group's folder");
    // As root: the group of the process is not that of the folder.
    SharedHost host(0770, Group);
    CreateFolder(S("C:\\a"));
    Write(S("C:\\a\\file"), S("x"));
    QCOMPARE(RightsOf(host.Drive + S("a")), mode_t{0770});
    QCOMPARE(Stat(host.Drive + S("a")).st_gid, Group);
    QCOMPARE(RightsOf(host.Drive + S("a/file")), mode_t{0660});
    QCOMPARE(Stat(host.Drive + S("a/file")).st_gid, Group);
}

void TestFileRights::whatAPersonChoseOutsideTheDriveFollowsTheMask()
{
    SharedHost host(01777);
    SetRights(host.Application, 01777);
    const QByteArray verdict = AsUser(FirstUser, FirstUser, [&] {
        ::umask(027);
        Write(host.Application + S("report.rpt"), S("x"));
        HOLDS(RightsOf(host.Application + S("report.rpt")) == 0640);
        return QByteArray();
    });
    QCOMPARE(verdict, QByteArray());
}

void TestFileRights::onePlayerSavesTheFileOfAnother()
{
    if (!CanChangeUser())
        QSKIP("needs the right to act as two users");
    SharedHost host(01777);
    const QByteArray first = AsUser(FirstUser, FirstUser, [&] {
        ::umask(077);
        CreateFolder(S("C:\\dati"));
        Write(S("C:\\dati\\Anna.ini"), S("something long of the first user"));
        return QByteArray();
    });
    QCOMPARE(first, QByteArray());
    const struct stat before = Stat(host.Drive + S("dati/Anna.ini"));
    const QByteArray second = AsUser(SecondUser, SecondUser, [&] {
        ::umask(077);
        HOLDS(::unlink((host.Drive + S("dati/Anna.ini")).toUtf8().constData()) != 0);
        Write(S("C:\\DATI\\anna.INI"), S("second"));
        HOLDS(ReadFile(S("C:\\dati\\Anna.ini")) == "second\r\n");
        HOLDS(WriteIni(S("C:\\dati\\Anna.ini"), S("A"), S("b"), S("c")));
        Write(S("C:\\dati\\Anna.ini"), S("second"));
        return QByteArray();
    });
    QCOMPARE(second, QByteArray());
    const struct stat after = Stat(host.Drive + S("dati/Anna.ini"));
    QCOMPARE(FolderHost::Get(host.Drive + S("dati/Anna.ini")), QByteArray("second\r\n"));
    QCOMPARE(after.st_ino, before.st_ino);
    QCOMPARE(after.st_uid, before.st_uid);
    QCOMPARE(after.st_mode & AllRights, mode_t{0666});
}

void TestFileRights::aNewFileOfAnotherUserIsWrittenByTheSecond()
{
    if (!CanChangeUser())
        QSKIP("needs the right to act as two users");
    SharedHost host(01777);
    QCOMPARE(AsUser(FirstUser, FirstUser,
                    [] {
                        CreateFolder(S("C:\\dati"));
                        return QByteArray();
                    }),
             QByteArray());
    QCOMPARE(AsUser(SecondUser, SecondUser,
                    [&] {
                        CreateFolder(S("C:\\dati\\Berta"));
                        Write(S("C:\\dati\\Berta\\1.rpt"), S("x"));
                        HOLDS(RightsOf(host.Drive + S("dati/Berta")) == 01777);
                        HOLDS(RightsOf(host.Drive + S("dati/Berta/1.rpt")) == 0666);
                        return QByteArray();
                    }),
             QByteArray());
}

void TestFileRights::whatMayNotBeWrittenIsRefusedAndStays()
{
    SharedHost host(0755);
    FolderHost::Put(host.Drive + S("file"), "old");
    FolderHost::Put(host.Drive + S("a.ini"), "[A]\nb=c\n");
    SetRights(host.Drive + S("file"), 0444);
    SetRights(host.Drive + S("a.ini"), 0444);
    SetRights(host.Drive, 0555);
    const QByteArray verdict = AsUser(FirstUser, FirstUser, [] {
        HOLDS(ErrorOf([] { TextWriter file(S("C:\\file")); }) == 70);
        HOLDS(ErrorOf([] { TextWriter file(S("C:\\new")); }) == 70);
        HOLDS(ErrorOf([] { CopyFile(S("C:\\file"), S("C:\\new")); }) == 70);
        HOLDS(ErrorOf([] { CreateFolder(S("C:\\folder")); }) == 70);
        HOLDS(!WriteIni(S("C:\\a.ini"), S("A"), S("b"), S("d")));
        HOLDS(!WriteIni(S("C:\\new.ini"), S("A"), S("b"), S("d")));
        HOLDS(ReadIni(S("C:\\a.ini"), S("A"), S("b")) == S("c"));
        return QByteArray();
    });
    SetRights(host.Drive, 0755);
    QCOMPARE(verdict, QByteArray());
    QCOMPARE(FolderHost::Get(host.Drive + S("file")), QByteArray("old"));
    QCOMPARE(FolderHost::Get(host.Drive + S("a.ini")), QByteArray("[A]\nb=c\n"));
    QCOMPARE(QDir(host.Drive).entryList(QDir::AllEntries | QDir::NoDotAndDotDot).size(), 2);
}

void TestFileRights::whatMayNotBeReadIsRefused()
{
    SharedHost host(0755);
    FolderHost::Put(host.Drive + S("secret"), "x");
    FolderHost::Put(host.Drive + S("folder/file"), "x");
    SetRights(host.Drive + S("secret"), 0);
    SetRights(host.Drive + S("folder"), 0);
    const QByteArray verdict = AsUser(FirstUser, FirstUser, [] {
        HOLDS(ErrorOf([] { ReadFile(S("C:\\secret")); }) == 70);
        HOLDS(ErrorOf([] { RecordReader file(S("C:\\secret")); }) == 70);
        HOLDS(ErrorOf([] { ReadIni(S("C:\\secret"), S("A"), S("b")); }) == 70);
        HOLDS(ErrorOf([] { ReadFile(S("C:\\folder\\file")); }) == 70);
        HOLDS(ErrorOf([] { DirList(S("C:\\folder\\*"), LookUp::FilesOnly); }) == 70);
        HOLDS(!FileExists(S("C:\\folder\\file")));
        HOLDS(FolderExists(S("C:\\folder")));
        return QByteArray();
    });
    SetRights(host.Drive + S("folder"), 0755);
    QCOMPARE(verdict, QByteArray());
}

void TestFileRights::aLinkOnTheDriveIsNeverFollowed()
{
    SharedHost host(01777);
    FolderHost::Put(host.Outside(S("secret")), "secret");
    FolderHost::Put(host.Drive + S("plain"), "plain");
    for (const QString &target : {host.Outside(S("secret")), host.Drive + S("plain")}) {
        const QString link = host.Drive + S("link.ini");
        QFile::remove(link);
        QVERIFY(QFile::link(target, link));
        const QByteArray old = FolderHost::Get(target);
        QVERIFY(!FileExists(S("C:\\link.ini")));
        QVERIFY(!FileExists(S("C:\\LINK.ini")));
        QCOMPARE(ErrorOf([] { ReadFile(S("C:\\link.ini")); }), 75);
        QCOMPARE(ErrorOf([] { RecordReader file(S("C:\\Link.ini")); }), 75);
        QCOMPARE(ErrorOf([] { FileLength(S("C:\\link.ini")); }), 75);
        QCOMPARE(ErrorOf([] { ReadIni(S("C:\\link.ini"), S("A"), S("b")); }), 75);
        QCOMPARE(ErrorOf([] { TextWriter file(S("C:\\link.ini")); }), 75);
        QCOMPARE(ErrorOf([] { CopyFile(S("C:\\plain"), S("C:\\link.ini")); }), 75);
        QVERIFY(!WriteIni(S("C:\\link.ini"), S("A"), S("b"), S("c")));
        QCOMPARE(DirList(S("C:\\*.ini"), LookUp::FilesAndFolders), QStringList());
        QCOMPARE(FolderHost::Get(target), old);
    }
}

void TestFileRights::aLinkedFolderOnTheDriveIsNeverEntered()
{
    SharedHost host(01777);
    FolderHost::Put(host.Outside(S("home/file")), "secret");
    QVERIFY(QFile::link(host.Outside(S("home")), host.Drive + S("dati")));
    QVERIFY(!FolderExists(S("C:\\dati")));
    QVERIFY(!FolderExists(S("C:\\dati\\")));
    QVERIFY(!FileExists(S("C:\\DATI\\file")));
    QCOMPARE(ErrorOf([] { ReadFile(S("C:\\dati\\file")); }), 75);
    QCOMPARE(ErrorOf([] { NativePath(S("C:\\dati\\file")); }), 75);
    QCOMPARE(ErrorOf([] { TextWriter file(S("C:\\dati\\new")); }), 75);
    QCOMPARE(ErrorOf([] { CreateFolder(S("C:\\dati\\new")); }), 75);
    QCOMPARE(ErrorOf([] { CreateFolder(S("C:\\dati")); }), 58);
    QCOMPARE(ErrorOf([] { DirList(S("C:\\dati\\*"), LookUp::FilesOnly); }), 75);
    QCOMPARE(QDir(host.Outside(S("home"))).entryList(QDir::Files), QStringList(S("file")));
}

void TestFileRights::specialFilesAreRefusedAtOnce()
{
    SharedHost host(01777);
    QCOMPARE(::mkfifo((host.Drive + S("pipe")).toUtf8().constData(), 0666), 0);
    // A reader that waits makes opening for writing succeed.
    const int reader = ::open((host.Drive + S("pipe")).toUtf8().constData(), O_RDONLY | O_NONBLOCK);
    QVERIFY(reader >= 0);
    for (int round = 0; round < 2; ++round) {
        QCOMPARE(ErrorOf([] { ReadFile(S("C:\\pipe")); }), 75);
        QCOMPARE(ErrorOf([] { FileLength(S("C:\\pipe")); }), 75);
        QCOMPARE(ErrorOf([] { TextWriter file(S("C:\\pipe")); }), 75);
        QVERIFY(!WriteIni(S("C:\\pipe"), S("A"), S("b"), S("c")));
        QVERIFY(!FileExists(S("C:\\pipe")));
        QVERIFY(!FolderExists(S("C:\\pipe")));
        // In the second round nobody reads.
        if (round == 0)
            ::close(reader);
    }
}

void TestFileRights::aDeviceIsRefused()
{
    SharedHost host(01777);
    const QByteArray name = (host.Drive + S("null")).toUtf8();
    if (::mknod(name.constData(), S_IFCHR | 0666, makedev(1, 3)) != 0)
        QSKIP("needs the right to make a device");
    QCOMPARE(ErrorOf([] { ReadFile(S("C:\\null")); }), 75);
    QCOMPARE(ErrorOf([] { TextWriter file(S("C:\\null")); }), 75);
    QVERIFY(!FileExists(S("C:\\null")));
}

void TestFileRights::aLinkInTheApplicationFolderIsFollowed()
{
    SharedHost host(01777);
    FolderHost::Put(host.Outside(S("share/1.swf")), "movie");
    QVERIFY(QFile::link(host.Outside(S("share/1.swf")), host.Application + S("1.swf")));
    QVERIFY(QFile::link(host.Outside(S("share")), host.Application + S("folder")));
    QCOMPARE(ReadFile(AppPath() + S("\\1.SWF")), QByteArray("movie"));
    QVERIFY(FileExists(AppPath() + S("\\1.swf")));
    QVERIFY(FolderExists(AppPath() + S("\\folder")));
    QCOMPARE(ReadFile(AppPath() + S("\\folder\\1.swf")), QByteArray("movie"));
    QCOMPARE(DirList(AppPath() + S("\\folder\\*"), LookUp::FilesOnly), QStringList(S("1.swf")));
    QCOMPARE(DirList(AppPath() + S("\\*.swf"), LookUp::FilesOnly), QStringList(S("1.swf")));
}

void TestFileRights::aLanguageSettingMayLieOnTheDrive()
{
    SharedHost host(01777);
    const QString setting = AppPath() + S("\\lngmorlene\\LangSetting.ini");
    const QString target = host.Drive + S("LangSetting.ini");
    QDir(host.Application).mkdir(S("lngmorlene"));
    QVERIFY(QFile::link(target, host.Application + S("lngmorlene/LangSetting.ini")));
    const QByteArray verdict = AsUser(FirstUser, FirstUser, [&] {
        ::umask(077);
        // The drive may have been emptied: the file is made anew and for all.
        HOLDS(ErrorOf([&] { ReadIni(setting, S("Language"), S("CurrentLanguage")); }) == 53);
        HOLDS(WriteIni(setting, S("Language"), S("CurrentLanguage"), S("english")));
        HOLDS(ReadIni(setting, S("Language"), S("CurrentLanguage")) == S("english"));
        HOLDS(RightsOf(target) == 0666);
        return QByteArray();
    });
    QCOMPARE(verdict, QByteArray());
    QVERIFY(QFileInfo(host.Application + S("lngmorlene/LangSetting.ini")).isSymLink());
    // What another user puts in its place on the drive is not followed any further.
    FolderHost::Put(host.Outside(S("secret")), "secret");
    QVERIFY(QFile::remove(target));
    QVERIFY(QFile::link(host.Outside(S("secret")), target));
    QVERIFY(!WriteIni(setting, S("Language"), S("CurrentLanguage"), S("english")));
    QCOMPARE(ErrorOf([&] { ReadIni(setting, S("Language"), S("CurrentLanguage")); }), 75);
    QCOMPARE(FolderHost::Get(host.Outside(S("secret"))), QByteArray("secret"));
}

void TestFileRights::aLinkThatLeadsNowhereMakesNothing()
{
    SharedHost host(01777);
    QVERIFY(QFile::link(host.Outside(S("nowhere")), host.Drive + S("link")));
    QVERIFY(QFile::link(host.Outside(S("nowhere")), host.Application + S("link")));
    for (const QString &path : {S("C:\\link"), AppPath() + S("\\link")})
        QCOMPARE(ErrorOf([&] { TextWriter file(path); }), 75);
    QVERIFY(!QFile::exists(host.Outside(S("nowhere"))));
}

void TestFileRights::anOverlongFileKeepsItsOldContent()
{
    SharedHost host(01777);
    const QByteArray verdict = AsUser(FirstUser, FirstUser, [&] {
        // The limit of the process stands for the end of the disk.
        constexpr rlim_t Limit = 4096; // bytes
        const struct rlimit limit = {Limit, Limit};
        std::signal(SIGXFSZ, SIG_IGN);
        Write(S("C:\\old"), S("old content"));
        HOLDS(::setrlimit(RLIMIT_FSIZE, &limit) == 0);
        const QString line(Limit, QLatin1Char('x'));
        HOLDS(ErrorOf([&] { Write(S("C:\\old"), line); }) == 61);
        HOLDS(ReadFile(S("C:\\old")) == "old content\r\n");
        HOLDS(!WriteIni(S("C:\\old"), S("A"), S("b"), line));
        HOLDS(ReadFile(S("C:\\old")) == "old content\r\n");
        HOLDS(ErrorOf([&] { Write(S("C:\\new"), line); }) == 61);
        HOLDS(!FileExists(S("C:\\new")));
        {
            TextWriter file(S("C:\\old"));
            file.PrintText(line);
            // Errors of the end are skipped, and nothing is lost then either.
        }
        HOLDS(ReadFile(S("C:\\old")) == "old content\r\n");
        Write(S("C:\\old"), S("fits"));
        HOLDS(ReadFile(S("C:\\old")) == "fits\r\n");
        return QByteArray();
    });
    QCOMPARE(verdict, QByteArray());
}

void TestFileRights::aFullDiskKeepsTheOldContent()
{
    SharedHost host(01777);
    const QByteArray disk = host.Drive.toUtf8();
    if (::mount("none", disk.constData(), "tmpfs", 0, "size=64k,mode=1777") != 0)
        QSKIP("needs the right to mount a small disk");
    const QByteArray verdict = AsUser(FirstUser, FirstUser, [&] {
        const QString line(40'000, QLatin1Char('x'));
        Write(S("C:\\old"), S("old content"));
        Write(S("C:\\filler"), line);
        HOLDS(ErrorOf([&] { Write(S("C:\\old"), line); }) == 61);
        HOLDS(ReadFile(S("C:\\old")) == "old content\r\n");
        HOLDS(ErrorOf([&] { CopyFile(S("C:\\filler"), S("C:\\new")); }) == 61);
        HOLDS(!FileExists(S("C:\\new")));
        // As much as there was still fits.
        Write(S("C:\\old"), S("new content"));
        HOLDS(ReadFile(S("C:\\old")) == "new content\r\n");
        return QByteArray();
    });
    QCOMPARE(::umount(disk.constData()), 0);
    QCOMPARE(verdict, QByteArray());
}

MORLENE_TEST(TestFileRights)
#include "test_file_rights.moc"
