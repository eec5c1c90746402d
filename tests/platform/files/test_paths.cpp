// Where literal paths lead, which names are refused, and what look-ups find.
#include "support/folder_host.h"

#include "platform/files/files.h"
#include "support/registered_tests.h"

#include <QTest>

#ifndef Q_OS_WIN
#include <sys/stat.h>
#include <unistd.h>
#endif

using namespace platform;

namespace {

QString S(const char *text)
{
    return QString::fromUtf8(text);
}

QStringList Words(const char *text)
{
    return S(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

} // namespace

class TestPaths : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aLiteralOnTheDriveLeadsBelowItsRoot();
    void doubledSeparatorsAreHarmless();
    void theExactNameComesFirst();
    void elseTheFirstInOrderIsTaken();
    void foldersOnTheWayAreFoundWithoutRegardToCase();
    void aSecondNameThatDiffersOnlyInCaseIsNeverMade();
    void aPathInTheApplicationFolderTurnsOnlyItsTail();
    void aNativePathStaysAsItIs();
    void aNameIsRefused_data();
    void aNameIsRefused();
    void aNameIsTaken_data();
    void aNameIsTaken();
#ifndef Q_OS_WIN
    void aNativePathBelowTheDriveIsJudgedToo();
#endif
    void aNativePathIsJudgedOnADriveThatIsAWholeDiskToo();
    void aLookUpIsSortedWithoutRegardToCase();
    void aPatternFits_data();
    void aPatternFits();
    void aPatternOfManyStarsEndsSoon();
    void aLookUpForFilesLeavesFoldersOut();
    void aLookUpWithoutAFolderGivesNothing();
#ifndef Q_OS_WIN
    void aNameThatIsNoTextIsLeftOut();
#endif
    void existenceTellsFilesFromFolders();
    void lengthsAreInBytes();
    void foldersAreMadeOneAtATime();
    void aCopyReplacesTheWholeTarget();
    void readingTellsWhatIsWrong();
#ifndef Q_OS_WIN
    void aFileBeyondAllMeasureIsRefused();
#endif
};

void TestPaths::aLiteralOnTheDriveLeadsBelowItsRoot()
{
    FolderHost host;
    QCOMPARE(NativePath(S("C:\\a\\b c.ini")), host.Drive + S("a/b c.ini"));
    QCOMPARE(NativePath(S("c:\\a\\")), host.Drive + S("a"));
    QCOMPARE(NativePath(S("C:\\")), host.Drive);
    QCOMPARE(NativePath(S("C:\\città.ini")), host.Drive + S("città.ini"));
}

void TestPaths::doubledSeparatorsAreHarmless()
{
    FolderHost host;
    FolderHost::Put(host.Drive + S("windows/fonts/indis1.ttf"), "x");
    QVERIFY(FileExists(S("C:\\windows\\\\fonts\\indis1.ttf")));
    QCOMPARE(NativePath(S("C:\\windows\\\\fonts\\indis1.ttf")),
             host.Drive + S("windows/fonts/indis1.ttf"));
}

void TestPaths::theExactNameComesFirst()
{
    FolderHost host;
    for (const char *name : {"Anna.ini", "ANNA.ini", "anna.ini"})
        FolderHost::Put(host.Drive + S(name), name);
    QCOMPARE(ReadFile(S("C:\\anna.ini")), QByteArray("anna.ini"));
    QCOMPARE(ReadFile(S("C:\\Anna.ini")), QByteArray("Anna.ini"));
}

void TestPaths::elseTheFirstInOrderIsTaken()
{
    FolderHost host;
    for (const char *name : {"anna.ini", "aNNA.ini", "Anna.ini", "annb.ini"})
        FolderHost::Put(host.Drive + S(name), name);
    QCOMPARE(ReadFile(S("C:\\ANNA.INI")), QByteArray("Anna.ini"));
}

void TestPaths::foldersOnTheWayAreFoundWithoutRegardToCase()
{
    FolderHost host;
    FolderHost::Put(host.Drive + S("DATI/Però/x.RPT"), "there");
    QCOMPARE(ReadFile(S("C:\\dati\\PERÒ\\X.rpt")), QByteArray("there"));
    QVERIFY(FolderExists(S("C:\\Dati\\")));
    QCOMPARE(NativePath(S("C:\\dati\\Nuova\\f")), host.Drive + S("DATI/Nuova/f"));
}

void TestPaths::aSecondNameThatDiffersOnlyInCaseIsNeverMade()
{
    FolderHost host;
    FolderHost::Put(host.Drive + S("dati/_predefinito.INI"), "old");
    TextWriter file(S("C:\\DATI\\_Predefinito.ini"));
    file.PrintText(S("new"));
    file.Close();
    QCOMPARE(ErrorOf([] { CreateFolder(QStringLiteral("C:\\Dati")); }), 58);
    QCOMPARE(QDir(host.Drive).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), Words("dati"));
    QCOMPARE(QDir(host.Drive + S("dati")).entryList(QDir::Files), Words("_predefinito.INI"));
    QCOMPARE(FolderHost::Get(host.Drive + S("dati/_predefinito.INI")), QByteArray("new\r\n"));
}

void TestPaths::aPathInTheApplicationFolderTurnsOnlyItsTail()
{
    FolderHost host;
    host.Application = host.Outside(S("a\\b")) + QLatin1Char('/');
    FolderHost::Put(host.Application + S("swf/Morlene1.SVG"), "x");
    QCOMPARE(AppPath(), host.Outside(S("a\\b")));
    QCOMPARE(NativePath(AppPath() + S("\\SWF\\morlene1.svg")),
             host.Application + S("swf/Morlene1.SVG"));
    QCOMPARE(DirList(AppPath() + S("\\Swf\\*.svg"), LookUp::FilesOnly), Words("Morlene1.SVG"));
    QCOMPARE(ErrorOf([] { NativePath(AppPath() + QStringLiteral("\\..\\x")); }), 52);
}

void TestPaths::aNativePathStaysAsItIs()
{
    FolderHost host;
    for (const char *path : {"/home/a\\b/c:d.txt", "relative.txt", "D:\\x", "C:x", ""})
        QCOMPARE(NativePath(S(path)), S(path));
    // The application folder's name with something else behind it is another folder.
    QCOMPARE(NativePath(AppPath() + S("x\\y")), AppPath() + S("x\\y"));
    const QString chosen = host.Outside(S("a\\b?.txt"));
    FolderHost::Put(chosen, "chosen");
    QCOMPARE(ReadFile(chosen), QByteArray("chosen"));
    QVERIFY(!FileExists(host.Outside(S("A\\B?.TXT"))));
}

void TestPaths::aNameIsRefused_data()
{
    QTest::addColumn<QString>("tail");
    for (const char *tail : {"..\\x",
                             "a\\..\\..\\x",
                             "..",
                             ".",
                             "a\\.\\b",
                             "a.",
                             "a.\\b",
                             "a/b",
                             "a:b",
                             "a*",
                             "a?",
                             "a\"b",
                             "a<b",
                             "a>b",
                             "a|b",
                             "a\nb",
                             "a\tb",
                             "a\x7f",
                             "..\\..\\etc\\passwd",
                             "a/../../x"})
        QTest::newRow(tail) << S(tail);
    QTest::newRow("nul") << QStringLiteral("a") + QChar(0) + QStringLiteral("b");
    QTest::newRow("half a letter") << QStringLiteral("a") + QChar(0xD800);
    QTest::newRow("other half") << QStringLiteral("a") + QChar(0xDC00);
    QTest::newRow("256 letters") << QString(256, QLatin1Char('x'));
    QTest::newRow("128 letters of two bytes") << QString(128, QChar(0xE8));
}

void TestPaths::aNameIsRefused()
{
    QFETCH(QString, tail);
    FolderHost host;
    const QString path = S("C:\\") + tail;
    QCOMPARE(ErrorOf([&] { NativePath(path); }), 52);
    QCOMPARE(ErrorOf([&] { TextWriter writer(path); }), 52);
    QCOMPARE(ErrorOf([&] { RecordReader reader(path); }), 52);
    QCOMPARE(ErrorOf([&] { CreateFolder(path); }), 52);
    QVERIFY(!FileExists(path));
    QVERIFY(!FolderExists(path));
    QCOMPARE(QDir(host.Drive).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList());
}

void TestPaths::aNameIsTaken_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name : {"_predefinito.INI", "a.b.c", ".lng", "..a", "città è", "你好", "😀",
                             "a b", "[1]", "%s", "~", "-rf"})
        QTest::newRow(name) << S(name);
    QTest::newRow("255 letters") << QString(255, QLatin1Char('x'));
}

void TestPaths::aNameIsTaken()
{
    QFETCH(QString, name);
    FolderHost host;
    const QString path = S("C:\\") + name;
    TextWriter file(path);
    file.Close();
    QVERIFY(FileExists(path));
    QCOMPARE(DirList(S("C:\\*"), LookUp::FilesOnly), QStringList(name));
}

#ifndef Q_OS_WIN
void TestPaths::aNativePathBelowTheDriveIsJudgedToo()
{
    FolderHost host;
    FolderHost::Put(host.Outside(S("secret")), "secret");
    QFile::link(host.Outside(S("secret")), host.Drive + S("link"));
    QDir(host.Drive).mkdir(S("real"));
    QFile::link(host.Drive + S("real"), host.Drive + S("folder"));
    QCOMPARE(ErrorOf([&] { ReadFile(host.Drive + S("link")); }), 75);
    QCOMPARE(ErrorOf([&] { ReadFile(host.Drive + S("real/../link")); }), 75);
    QCOMPARE(ErrorOf([&] { TextWriter writer(host.Drive + S("link")); }), 75);
    QCOMPARE(ErrorOf([&] { TextWriter writer(host.Drive + S("folder/new")); }), 75);
    QCOMPARE(ErrorOf([&] { TextWriter writer(host.Drive + S("a:b")); }), 52);
    QCOMPARE(FolderHost::Get(host.Outside(S("secret"))), QByteArray("secret"));
    // Outside the drive a person's own links are followed.
    QFile::link(host.Outside(S("secret")), host.Outside(S("mine")));
    QCOMPARE(ReadFile(host.Outside(S("mine"))), QByteArray("secret"));
}
#endif

void TestPaths::aNativePathIsJudgedOnADriveThatIsAWholeDiskToo()
{
    FolderHost host;
    host.Drive = QDir::rootPath();
    QCOMPARE(ErrorOf([&] { TextWriter writer(host.Outside(S("a?b"))); }), 52);
}

void TestPaths::aLookUpIsSortedWithoutRegardToCase()
{
    FolderHost host;
    for (const char *name : {"b.ini", "a.INI", "C.ini", "A.ini", "aa.ini", "x.txt", "ini"})
        FolderHost::Put(host.Drive + S(name), "");
    QCOMPARE(DirList(S("C:\\*.ini"), LookUp::FilesAndFolders),
             Words("A.ini a.INI aa.ini b.ini C.ini"));
    // Exactly one when nothing in the last part stands for other letters.
    QCOMPARE(DirList(S("C:\\X.TXT"), LookUp::FilesOnly), Words("x.txt"));
    QCOMPARE(DirList(host.Drive + S("*.txt"), LookUp::FilesOnly), Words("x.txt"));
    QCOMPARE(DirList(S("C:\\"), LookUp::FilesOnly).size(), 7);
    QCOMPARE(DirList(host.Drive, LookUp::FilesOnly).size(), 7);
    QCOMPARE(ErrorOf([] { DirList(QStringLiteral("C:\\a*\\x"), LookUp::FilesOnly); }), 52);
    QCOMPARE(ErrorOf([] { DirList(QStringLiteral("C:\\..\\*"), LookUp::FilesOnly); }), 52);
    QCOMPARE(ErrorOf([] { DirList(QStringLiteral("C:\\*/x"), LookUp::FilesOnly); }), 52);
}

void TestPaths::aPatternFits_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QString>("fitting");
    QTest::newRow("all") << S("*") << S("1.swf 10.swf a.b.swf swf");
    QTest::newRow("all with a point") << S("*.*") << S("1.swf 10.swf a.b.swf swf");
    QTest::newRow("ending") << S("*.SWF") << S("1.swf 10.swf a.b.swf");
    QTest::newRow("one letter") << S("?.swf") << S("1.swf");
    QTest::newRow("two letters") << S("??.swf") << S("10.swf");
    QTest::newRow("middle") << S("a*b*f") << S("a.b.swf");
    QTest::newRow("stars") << S("**1**") << S("1.swf 10.swf");
    QTest::newRow("point is a point") << S("1?swf") << S("1.swf");
    QTest::newRow("none") << S("*.sw") << S("");
}

void TestPaths::aPatternFits()
{
    QFETCH(QString, pattern);
    QFETCH(QString, fitting);
    FolderHost host;
    for (const char *name : {"1.swf", "10.swf", "a.b.swf", "swf"})
        FolderHost::Put(host.Drive + S(name), "");
    QCOMPARE(DirList(S("C:\\") + pattern, LookUp::FilesOnly),
             fitting.split(QLatin1Char(' '), Qt::SkipEmptyParts));
}

void TestPaths::aPatternOfManyStarsEndsSoon()
{
    FolderHost host;
    FolderHost::Put(host.Drive + QString(250, QLatin1Char('a')), "");
    QCOMPARE(DirList(S("C:\\") + S("*a").repeated(100) + S("b"), LookUp::FilesOnly), QStringList());
}

void TestPaths::aLookUpForFilesLeavesFoldersOut()
{
    FolderHost host;
    FolderHost::Put(host.Drive + S("a.wav"), "");
    QDir(host.Drive).mkdir(S("b.wav"));
#ifndef Q_OS_WIN
    QFile::link(host.Drive + S("a.wav"), host.Drive + S("c.wav"));
    QFile::link(host.Drive + S("b.wav"), host.Drive + S("d.wav"));
    QCOMPARE(::mkfifo((host.Drive + S("e.wav")).toUtf8().constData(), 0666), 0);
#endif
    QCOMPARE(DirList(S("C:\\*.wav"), LookUp::FilesOnly), Words("a.wav"));
    QCOMPARE(DirList(S("C:\\*.wav"), LookUp::FilesAndFolders), Words("a.wav b.wav"));
}

void TestPaths::aLookUpWithoutAFolderGivesNothing()
{
    FolderHost host;
    FolderHost::Put(host.Drive + S("file"), "");
    QCOMPARE(DirList(S("C:\\nowhere\\*"), LookUp::FilesOnly), QStringList());
    QCOMPARE(DirList(S("C:\\file\\*"), LookUp::FilesOnly), QStringList());
    QCOMPARE(DirList(host.Outside(S("nowhere/*")), LookUp::FilesOnly), QStringList());
}

#ifndef Q_OS_WIN
void TestPaths::aNameThatIsNoTextIsLeftOut()
{
    FolderHost host;
    const QByteArray name = host.Drive.toUtf8() + "\xff.ini";
    FILE *file = std::fopen(name.constData(), "w");
    QVERIFY(file != nullptr);
    std::fclose(file);
    QCOMPARE(DirList(S("C:\\*"), LookUp::FilesOnly), QStringList());
    QCOMPARE(std::remove(name.constData()), 0);
}
#endif

void TestPaths::existenceTellsFilesFromFolders()
{
    FolderHost host;
    FolderHost::Put(host.Drive + S("file"), "");
    QDir(host.Drive).mkdir(S("folder"));
    QVERIFY(FileExists(S("C:\\file")));
    QVERIFY(!FolderExists(S("C:\\file")));
    QVERIFY(!FolderExists(S("C:\\file\\below")));
    QVERIFY(FolderExists(S("C:\\folder")));
    QVERIFY(FolderExists(S("C:\\folder\\")));
    QVERIFY(FolderExists(S("C:\\")));
    QVERIFY(!FileExists(S("C:\\folder")));
    QVERIFY(!FileExists(S("C:\\nowhere")));
    QVERIFY(!FolderExists(S("C:\\nowhere")));
    QVERIFY(!FileExists(QString()));
    QVERIFY(!FolderExists(QString()));
    QVERIFY(FolderExists(AppPath()));
    QVERIFY(FolderExists(AppPath() + S("\\")));
}

void TestPaths::lengthsAreInBytes()
{
    FolderHost host;
    FolderHost::Put(host.Drive + S("file"), "è.\r\n");
    QCOMPARE(FileLength(S("C:\\file")), int64_t{5});
    QCOMPARE(ErrorOf([] { FileLength(QStringLiteral("C:\\nowhere")); }), 53);
    QCOMPARE(ErrorOf([] { FileLength(QStringLiteral("C:\\nowhere\\x")); }), 53);
    QCOMPARE(ErrorOf([] { FileLength(QStringLiteral("C:\\")); }), 75);
}

void TestPaths::foldersAreMadeOneAtATime()
{
    FolderHost host;
    FolderHost::Put(host.Drive + S("file"), "");
    QCOMPARE(ErrorOf([] { CreateFolder(QStringLiteral("C:\\a\\b")); }), 76);
    QVERIFY(!QFile::exists(host.Drive + S("a")));
    CreateFolder(S("C:\\a\\"));
    CreateFolder(S("C:\\A\\b"));
    QVERIFY(QFileInfo(host.Drive + S("a/b")).isDir());
    QCOMPARE(ErrorOf([] { CreateFolder(QStringLiteral("C:\\a\\b")); }), 58);
    QCOMPARE(ErrorOf([] { CreateFolder(QStringLiteral("C:\\")); }), 58);
    QCOMPARE(ErrorOf([] { CreateFolder(QStringLiteral("C:\\file")); }), 58);
    QCOMPARE(ErrorOf([] { CreateFolder(QStringLiteral("C:\\file\\x")); }), 76);
    CreateFolder(host.Outside(S("chosen")));
    QVERIFY(QFileInfo(host.Outside(S("chosen"))).isDir());
}

void TestPaths::aCopyReplacesTheWholeTarget()
{
    FolderHost host;
    FolderHost::Put(host.Application + S("indis1.ttf"), QByteArray("a\0b", 3));
    FolderHost::Put(host.Drive + S("font"), "something longer");
    CopyFile(AppPath() + S("\\indis1.ttf"), S("C:\\font"));
    QCOMPARE(FolderHost::Get(host.Drive + S("font")), QByteArray("a\0b", 3));
    QCOMPARE(
        ErrorOf([] { CopyFile(AppPath() + QStringLiteral("\\none"), QStringLiteral("C:\\font")); }),
        53);
    QCOMPARE(FolderHost::Get(host.Drive + S("font")), QByteArray("a\0b", 3));
    QCOMPARE(ErrorOf([] { CopyFile(QStringLiteral("C:\\font"), QStringLiteral("C:\\no\\x")); }),
             76);
    QCOMPARE(ErrorOf([] { CopyFile(QStringLiteral("C:\\font"), QStringLiteral("C:\\")); }), 75);
}

void TestPaths::readingTellsWhatIsWrong()
{
    FolderHost host;
    QDir(host.Drive).mkdir(S("folder"));
    QCOMPARE(ErrorOf([] { ReadFile(QStringLiteral("C:\\nowhere")); }), 53);
    QCOMPARE(ErrorOf([] { ReadFile(QStringLiteral("C:\\nowhere\\x")); }), 53);
    QCOMPARE(ErrorOf([] { ReadFile(QStringLiteral("C:\\folder")); }), 75);
    QCOMPARE(ErrorOf([] { ReadFile(QStringLiteral("C:\\")); }), 75);
    QCOMPARE(ErrorOf([] { RecordReader reader(QStringLiteral("C:\\nowhere")); }), 53);
    QCOMPARE(ErrorOf([] { TextWriter writer(QStringLiteral("C:\\folder")); }), 75);
    QCOMPARE(ErrorOf([] { TextWriter writer(QStringLiteral("C:\\nowhere\\x")); }), 76);
    try {
        ReadFile(S("C:\\nowhere"));
        QFAIL("nothing was raised");
    } catch (const RunTimeError &error) {
        QVERIFY(error.Text().contains(host.Drive + S("nowhere")));
    }
}

#ifndef Q_OS_WIN
void TestPaths::aFileBeyondAllMeasureIsRefused()
{
    FolderHost host;
    FolderHost::Put(host.Drive + S("huge"), "");
    const QByteArray native = (host.Drive + S("huge")).toUtf8();
    QCOMPARE(::truncate(native.constData(), off_t{1} << 40), 0);
    QCOMPARE(ErrorOf([] { ReadFile(QStringLiteral("C:\\huge")); }), 75);
}
#endif

MORLENE_TEST(TestPaths)
#include "test_paths.moc"
