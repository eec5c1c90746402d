// Initialisation files: what a look-up finds, what a change keeps, and when a file is read anew.
#include "support/folder_host.h"

#include "platform/files/files.h"
#include "platform/files/ini.h"
#include "support/registered_tests.h"

#include <QDateTime>
#include <QTest>

using namespace platform;

namespace {

QString S(const char *text)
{
    return QString::fromUtf8(text);
}

const QString Path = QStringLiteral("C:\\a.ini");

QString Value(const QByteArray &content, const char *section = "A", const char *key = "k")
{
    FolderHost host;
    FolderHost::Put(host.Drive + S("a.ini"), content);
    return ReadIni(Path, S(section), S(key));
}

// Only a file that was not changed just now is kept.
void MakeOld(const QString &native)
{
    constexpr qint64 LongAgo = 1'000'000; // seconds since 1970
    QFile file(native);
    if (!file.open(QIODevice::ReadWrite) ||
        !file.setFileTime(QDateTime::fromSecsSinceEpoch(LongAgo),
                          QFileDevice::FileModificationTime))
        qFatal("the test could not set a time");
}

QByteArray AfterChange(const QByteArray &content, const char *section = "A", const char *key = "k",
                       const char *value = "v")
{
    FolderHost host;
    FolderHost::Put(host.Drive + S("a.ini"), content);
    if (!WriteIni(Path, S(section), S(key), S(value)))
        return "(not written)";
    const QByteArray written = FolderHost::Get(host.Drive + S("a.ini"));
    // Whatever the rest of the file is, the value comes back.
    return ReadIni(Path, S(section), S(key)) == S(value) ? written : "(not found)";
}

} // namespace

class TestIni : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aValueIsFound_data();
    void aValueIsFound();
    void namesAreComparedWithoutRegardToCase();
    void theFirstSectionAndTheFirstKeyHold();
    void lettersAreThoseOfTheCodePage();
    void aValueIsCutTo511Letters();
    void aMissingFileIsAnError();
    void aDamagedFileGivesWhatItHas();
    void aChangeKeepsEveryOtherByte_data();
    void aChangeKeepsEveryOtherByte();
    void aNewFileIsMade();
    void aValueOfTwoLinesIsNotWritten();
    void aFolderInItsPlaceIsNotWritten();
    void aChangedFileShowsAtTheNextLookUp();
    void aReplacedFileShowsAtTheNextLookUp();
    void aFileWhoseTimeIsSetBackShowsAtTheNextLookUp();
    void aVanishedFileIsAnErrorAgain();
    void aSettledFileIsNotReadAgain();
};

void TestIni::aValueIsFound_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("value");
    const auto row = [](const char *name, const char *content, const char *value) {
        QTest::newRow(name) << QByteArray(content) << S(value);
    };
    row("plain", "[A]\r\nk=v\r\n", "v");
    row("line feeds", "[A]\nk=v\n", "v");
    row("carriage returns", "[A]\rk=v\r", "v");
    row("no end", "[A]\nk=v", "v");
    row("blanks", " [ A ] \n \tk \t= \t v w \t\n", "v w");
    row("quotes", "[A]\nk=\"v\"\n", "v");
    row("quotes keep blanks", "[A]\nk= \" v \" \n", " v ");
    row("one pair of quotes", "[A]\nk=\"\"v\"\"\n", "\"v\"");
    row("half a pair", "[A]\nk=\"v\n", "\"v");
    row("other half", "[A]\nk=v\"\n", "v\"");
    row("one quote", "[A]\nk=\"\n", "\"");
    row("two quotes", "[A]\nk=\"\"\n", "");
    row("single quotes stay", "[A]\nk='v'\n", "'v'");
    row("equals sign in the value", "[A]\nk=a=b\n", "a=b");
    row("empty value", "[A]\nk=\nk=v\n", "");
    row("no key", "[A]\nkk=v\nxk=v\nk\n", "");
    row("no section", "[B]\nk=v\n", "");
    row("before any section", "k=v\n[B]\n", "");
    row("section behind", "[A]\n[B]\nk=v\n", "");
    row("remark", "[A]\n;k=x\nk=v\n", "v");
    row("remark behind a value", "[A]\nk=v;x\n", "v;x");
    row("no line of a key", "[A]\nnonsense\n\n===\nk=v\n", "v");
    row("behind the bracket", "[A] x\nk=v\n", "v");
    row("byte order mark", "\xEF\xBB\xBF[A]\nk=v\n", "v");
    row("empty file", "", "");
    QTest::newRow("up to a nul") << QByteArray("[A]\nk=v\0w\n", 10) << S("v");
}

void TestIni::aValueIsFound()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, value);
    QCOMPARE(Value(content), value);
}

void TestIni::namesAreComparedWithoutRegardToCase()
{
    QCOMPARE(Value("[strings]\nLABEL1.caption=v\n", "Strings", "Label1.Caption"), S("v"));
    QCOMPARE(Value("[CITT\xC0]\n\xC8=v\n", "città", "è"), S("v"));
    QCOMPARE(Value("[Strings]\n0001=v\n", " strings ", " 0001 "), S("v"));
}

void TestIni::theFirstSectionAndTheFirstKeyHold()
{
    QCOMPARE(Value("[A]\nk=1\nK=2\n[a]\nk=3\n"), S("1"));
    QCOMPARE(Value("[A]\nx=1\n[B]\n[a]\nk=3\n"), QString());
    QCOMPARE(Value("[A]\nk=1\n[B]\nk=2\n", "B"), S("2"));
}

void TestIni::lettersAreThoseOfTheCodePage()
{
    QCOMPARE(Value("[A]\nk=perch\xE9 \x80\n"), S("perché €"));
}

void TestIni::aValueIsCutTo511Letters()
{
    QCOMPARE(Value("[A]\nk=" + QByteArray(600, 'x') + "\n"), QString(511, QLatin1Char('x')));
    QCOMPARE(Value("[A]\nk=" + QByteArray(511, 'x') + "\n"), QString(511, QLatin1Char('x')));
    // The quotes do not count.
    QCOMPARE(Value("[A]\nk=\"" + QByteArray(511, 'x') + "y\"\n"), QString(511, QLatin1Char('x')));
}

void TestIni::aMissingFileIsAnError()
{
    FolderHost host;
    QDir(host.Drive).mkdir(S("folder.ini"));
    QCOMPARE(ErrorOf([] { ReadIni(Path, S("A"), S("k")); }), 53);
    QCOMPARE(ErrorOf([] { ReadIni(S("C:\\no\\a.ini"), S("A"), S("k")); }), 53);
    QCOMPARE(ErrorOf([] { ReadIni(S("C:\\folder.ini"), S("A"), S("k")); }), 75);
    QCOMPARE(ErrorOf([] { ReadIni(S("C:\\..\\a.ini"), S("A"), S("k")); }), 52);
}

void TestIni::aDamagedFileGivesWhatItHas()
{
    QCOMPARE(Value("[\n]\n[A\nk=v\n"), S("v"));
    QCOMPARE(Value("[]\n=\n[A]\n=x\nk=v\n"), S("v"));
    QByteArray noise(1024 * 1024, '\0');
    uint32_t state = 7;
    for (char &byte : noise) {
        state = state * 1664525U + 1013904223U;
        byte = "[]=\"\n\r\0 Ak;"[(state >> 16U) % 12U];
    }
    QVERIFY(Value(noise).size() <= 511);
}

void TestIni::aChangeKeepsEveryOtherByte_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    QTest::addColumn<QByteArray>("value");
    const auto row = [](const char *name, const char *before, const char *after,
                        const char *value = "v") {
        QTest::newRow(name) << QByteArray(before) << QByteArray(after) << QByteArray(value);
    };
    row("a value", "[A]\r\nk=old\r\nx=y\r\n", "[A]\r\nk=v\r\nx=y\r\n");
    row("line feeds", "[A]\nk=old\nx=y\n", "[A]\nk=v\nx=y\n");
    row("mixed ends", "[A]\r\nk=old\nx=y\r", "[A]\r\nk=v\nx=y\r");
    row("the last line without an end", "[A]\nx=y\nk=old", "[A]\nx=y\nk=v");
    row("remarks and nonsense", "; one\n\n[A]\n;k=x\n??\n K = old\n\n[B]\nk=b\n",
        "; one\n\n[A]\n;k=x\n??\nk=v\n\n[B]\nk=b\n");
    row("other bytes", "[A]\n\xE8=\xFF\x81\nk=\n", "[A]\n\xE8=\xFF\x81\nk=v\n");
    row("the first of two", "[A]\nk=1\nk=2\n[A]\nk=3\n", "[A]\nk=v\nk=2\n[A]\nk=3\n");
    row("a new key", "[A]\nx=y\n\n[B]\nk=b\n", "[A]\nx=y\nk=v\n\n[B]\nk=b\n");
    row("a new key in an empty section", "[A]\n[B]\n", "[A]\nk=v\n[B]\n");
    row("a new key behind an end that lacks", "[A]\r\nx=y", "[A]\r\nx=y\r\nk=v\r\n");
    row("a new key in the first section", "[A]\nx=1\n[B]\n[A]\nk=2\n",
        "[A]\nx=1\nk=v\n[B]\n[A]\nk=2\n");
    row("a new section", "[B]\nk=b\n", "[B]\nk=b\n[A]\nk=v\n");
    row("a key of no section", "k=x\r\n", "k=x\r\n[A]\r\nk=v\r\n");
    row("empty", "", "[A]\r\nk=v\r\n");
    row("byte order mark", "\xEF\xBB\xBF[A]\nk=x\n", "\xEF\xBB\xBF[A]\nk=v\n");
    row("a value with a blank", "[A]\nk=1\n", "[A]\nk=\" v \"\n", " v ");
    row("a value with a tab", "[A]\nk=1\n", "[A]\nk=\"v\t\"\n", "v\t");
    row("a value in quotes", "[A]\nk=1\n", "[A]\nk=\"\"v\"\"\n", "\"v\"");
    row("an empty value", "[A]\nk=1\n", "[A]\nk=\n", "");
    row("byte order mark alone", "\xEF\xBB\xBF", "\xEF\xBB\xBF[A]\r\nk=v\r\n");
}

void TestIni::aChangeKeepsEveryOtherByte()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);
    QFETCH(QByteArray, value);
    QCOMPARE(AfterChange(before, "A", "k", value.constData()), after);
}

void TestIni::aNewFileIsMade()
{
    FolderHost host;
    QVERIFY(WriteIni(Path, S("Language"), S("CurrentLanguage"), S("français")));
    QCOMPARE(FolderHost::Get(host.Drive + S("a.ini")),
             QByteArray("[Language]\r\nCurrentLanguage=fran\xE7"
                        "ais\r\n"));
    QVERIFY(!WriteIni(S("C:\\no\\a.ini"), S("A"), S("k"), S("v")));
    QVERIFY(!WriteIni(S("C:\\..\\a.ini"), S("A"), S("k"), S("v")));
}

void TestIni::aValueOfTwoLinesIsNotWritten()
{
    QCOMPARE(AfterChange("[A]\nk=x\n", "A", "k", "v\n[B]"), QByteArray("(not written)"));
    QCOMPARE(AfterChange("[A]\nk=x\n", "A\n", "k", "v"), QByteArray("(not written)"));
    QCOMPARE(AfterChange("[A]\nk=x\n", "A", "k\r", "v"), QByteArray("(not written)"));
}

void TestIni::aFolderInItsPlaceIsNotWritten()
{
    FolderHost host;
    QDir(host.Drive).mkdir(S("a.ini"));
    QVERIFY(!WriteIni(Path, S("A"), S("k"), S("v")));
    QVERIFY(QFileInfo(host.Drive + S("a.ini")).isDir());
}

void TestIni::aChangedFileShowsAtTheNextLookUp()
{
    FolderHost host;
    // Of one length, and many in one tick of the file system's clock.
    for (int i = 100; i < 200; ++i) {
        FolderHost::Put(host.Drive + S("a.ini"), "[A]\nk=" + QByteArray::number(i) + "\n");
        QCOMPARE(ReadIni(Path, S("A"), S("k")), QString::number(i));
    }
    QVERIFY(WriteIni(Path, S("A"), S("k"), S("200")));
    QCOMPARE(ReadIni(Path, S("A"), S("k")), S("200"));
}

void TestIni::aReplacedFileShowsAtTheNextLookUp()
{
    FolderHost host;
    const QByteArray native = (host.Drive + S("a.ini")).toUtf8();
    for (const char *value : {"1", "2"}) {
        FolderHost::Put(host.Outside(S("next")), QByteArray("[A]\nk=") + value + "\n");
        MakeOld(host.Outside(S("next")));
        QCOMPARE(std::rename(host.Outside(S("next")).toUtf8().constData(), native.constData()), 0);
        QCOMPARE(ReadIni(Path, S("A"), S("k")), S(value));
    }
}

void TestIni::aFileWhoseTimeIsSetBackShowsAtTheNextLookUp()
{
    FolderHost host;
    // One file, one length, one time, and many changes in one tick of the file system's clock.
    for (int i = 100; i < 200; ++i) {
        FolderHost::Put(host.Drive + S("a.ini"), "[A]\nk=" + QByteArray::number(i) + "\n");
        MakeOld(host.Drive + S("a.ini"));
        QCOMPARE(ReadIni(Path, S("A"), S("k")), QString::number(i));
    }
}

void TestIni::aVanishedFileIsAnErrorAgain()
{
    FolderHost host;
    FolderHost::Put(host.Drive + S("a.ini"), "[A]\nk=v\n");
    QCOMPARE(ReadIni(Path, S("A"), S("k")), S("v"));
    QVERIFY(QFile::remove(host.Drive + S("a.ini")));
    QCOMPARE(ErrorOf([] { ReadIni(Path, S("A"), S("k")); }), 53);
    FolderHost::Put(host.Drive + S("a.ini"), "[A]\nk=w\n");
    QCOMPARE(ReadIni(Path, S("A"), S("k")), S("w"));
}

void TestIni::aSettledFileIsNotReadAgain()
{
    FolderHost host;
    QByteArray content("[A]\n");
    for (int i = 0; i < 200'000; ++i)
        content += QByteArray::number(i) + "=value\n";
    FolderHost::Put(host.Drive + S("a.ini"), content);
    MakeOld(host.Drive + S("a.ini"));
    QCOMPARE(ReadIni(Path, S("A"), S("0")), S("value"));
    // Parsed at each look-up these would take minutes.
    for (int i = 0; i < 1500; ++i)
        QCOMPARE(ReadIni(Path, S("A"), QString::number(i)), S("value"));
}

MORLENE_TEST(TestIni)
#include "test_ini.moc"
