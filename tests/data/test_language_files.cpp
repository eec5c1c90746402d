// The language files as they lie on disk, read by their bytes: right for both ways in which the
// program reads them, and complete.
#include "support/registered_tests.h"

#include <QDir>
#include <QRegularExpression>
#include <QSet>
#include <QTest>

namespace {

constexpr qsizetype LongestValue = 511;  // letters that the reader gives
constexpr qsizetype LargestFile = 64000; // bytes; beyond, sections and unquoted values are lost
const QByteArray LetterlessBytes = QByteArrayLiteral("\x81\x8D\x8F\x90\x9D");

QString Folder()
{
    return QStringLiteral(SOURCE_DIR "/data/lngmorlene/");
}

QByteArray Content(const QString &name)
{
    QFile file(Folder() + name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

struct Entry {
    QByteArray Section;
    QByteArray Key;
    QByteArray Value;
};

struct Language {
    QList<QByteArray> Sections;
    QList<Entry> Entries;
    QList<QByteArray> Strange; // lines of no known form

    QByteArray Text(const QByteArray &key) const
    {
        for (const Entry &entry : Entries)
            if (entry.Section == "Strings" && entry.Key == key)
                return entry.Value;
        return {};
    }
};

Language Read(const QString &name)
{
    static const QRegularExpression heading(QStringLiteral("^\\[(\\w+)\\]$"));
    static const QRegularExpression entry(
        QStringLiteral("^(\\d{4}|\\w+(?:\\(\\d+\\))?\\.[A-Z]\\w+(?:\\(\\d+\\))?)=\"([^\"]*)\"$"));
    Language language;
    QByteArray section;
    for (const QByteArray &line : Content(name).replace("\r\n", "\n").split('\n')) {
        if (line.isEmpty() || line.startsWith(';'))
            continue;
        const QString text = QString::fromLatin1(line);
        if (const auto found = heading.match(text); found.hasMatch()) {
            section = found.captured(1).toLatin1();
            language.Sections << section;
        } else if (const auto pair = entry.match(text); pair.hasMatch() && !section.isEmpty()) {
            language.Entries << Entry{section, pair.captured(1).toLatin1(),
                                      pair.captured(2).toLatin1()};
        } else {
            language.Strange << line;
        }
    }
    return language;
}

// The numbered texts that the program asks for; the numbers in between belong to nothing.
QList<QByteArray> Catalogue()
{
    QList<QByteArray> keys;
    const auto add = [&keys](int from, int to) {
        for (int key = from; key <= to; ++key)
            keys << QByteArray::number(key).rightJustified(4, '0');
    };
    add(1, 45);
    add(51, 55);
    add(59, 105);
    add(9996, 9999);
    return keys;
}

QByteArray Name(const Entry &entry)
{
    return entry.Section + ": " + entry.Key;
}

} // namespace

class TestLanguageFiles : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theLanguageOfANewInstallationIsThere();

    void linesEndInCarriageReturnAndLineFeed_data() { EachFile(); }
    void linesEndInCarriageReturnAndLineFeed();
    void everyByteIsALetterOfTheCodePage_data() { EachFile(); }
    void everyByteIsALetterOfTheCodePage();
    void theFileIsSmallEnoughToBeReadBySections_data() { EachFile(); }
    void theFileIsSmallEnoughToBeReadBySections();
    void everyLineIsANoteAHeadingOrAQuotedValue_data() { EachFile(); }
    void everyLineIsANoteAHeadingOrAQuotedValue();
    void everyNumberedTextIsThere_data() { EachFile(); }
    void everyNumberedTextIsThere();
    void noNumberedTextIsUnknown_data() { EachFile(); }
    void noNumberedTextIsUnknown();
    void noValueIsLongerThanTheReaderGives_data() { EachFile(); }
    void noValueIsLongerThanTheReaderGives();
    void noLanguageChangesATag_data() { EachFile(); }
    void noLanguageChangesATag();
    void everyWindowHasATitle_data() { EachFile(); }
    void everyWindowHasATitle();
    void noSectionAndNoKeyStandsTwice_data() { EachFile(); }
    void noSectionAndNoKeyStandsTwice();
    void noKeyBeginsAnother_data() { EachFile(); }
    void noKeyBeginsAnother();
    void piecesThatGetTheirBlanksFromTheProgramHaveNoneOfTheirOwn_data() { EachFile(); }
    void piecesThatGetTheirBlanksFromTheProgramHaveNoneOfTheirOwn();
    void openingsThatGetNoBlankEndInOne_data() { EachFile(); }
    void openingsThatGetNoBlankEndInOne();
    void theFiguresFindTheirVariable_data() { EachFile(); }
    void theFiguresFindTheirVariable();
    void everyLanguageNamesTheSameKeysAsItalian_data() { EachFile(); }
    void everyLanguageNamesTheSameKeysAsItalian();

private:
    static void EachFile()
    {
        QTest::addColumn<QString>("name");
        for (const QString &name : QDir(Folder()).entryList({QStringLiteral("*.lng")}))
            QTest::newRow(qPrintable(name)) << name;
    }
};

void TestLanguageFiles::theLanguageOfANewInstallationIsThere()
{
    QCOMPARE(Content(QStringLiteral("LangSetting.ini")),
             QByteArray("[Language]\r\nCurrentLanguage=italiano\r\n"));
    QVERIFY(!Content(QStringLiteral("italiano.lng")).isEmpty());
}

void TestLanguageFiles::linesEndInCarriageReturnAndLineFeed()
{
    QFETCH(QString, name);
    const QByteArray content = Content(name);
    QVERIFY(content.endsWith("\r\n"));
    QCOMPARE(content.count('\n'), content.count("\r\n"));
    QCOMPARE(content.count('\r'), content.count("\r\n"));
}

void TestLanguageFiles::everyByteIsALetterOfTheCodePage()
{
    QFETCH(QString, name);
    int line = 1;
    for (const char byte : Content(name)) {
        line += byte == '\n' ? 1 : 0;
        const auto number = static_cast<unsigned char>(byte);
        const bool control = number < 0x20 && byte != '\r' && byte != '\n';
        QVERIFY2(!control && number != 0x7F && !LetterlessBytes.contains(byte),
                 qPrintable(QStringLiteral("line %1").arg(line)));
    }
    // An accented letter in UTF-8 would read as one of these and a further sign.
    QVERIFY2(!Content(name).contains('\xC3') && !Content(name).contains('\xC2'), "UTF-8");
}

void TestLanguageFiles::theFileIsSmallEnoughToBeReadBySections()
{
    QFETCH(QString, name);
    QVERIFY(Content(name).size() < LargestFile);
}

void TestLanguageFiles::everyLineIsANoteAHeadingOrAQuotedValue()
{
    QFETCH(QString, name);
    const Language language = Read(name);
    QVERIFY2(language.Strange.isEmpty(), language.Strange.join('\n').constData());
    QVERIFY(language.Sections.contains("Strings"));
}

void TestLanguageFiles::everyNumberedTextIsThere()
{
    QFETCH(QString, name);
    const Language language = Read(name);
    QCOMPARE(Catalogue().size(), 101);
    for (const QByteArray &key : Catalogue())
        QVERIFY2(!language.Text(key).trimmed().isEmpty(), key.constData());
}

void TestLanguageFiles::noNumberedTextIsUnknown()
{
    QFETCH(QString, name);
    for (const Entry &entry : Read(name).Entries)
        if (entry.Section == "Strings")
            QVERIFY2(Catalogue().contains(entry.Key), entry.Key.constData());
}

void TestLanguageFiles::noValueIsLongerThanTheReaderGives()
{
    QFETCH(QString, name);
    for (const Entry &entry : Read(name).Entries)
        QVERIFY2(entry.Value.size() <= LongestValue, Name(entry).constData());
}

void TestLanguageFiles::noLanguageChangesATag()
{
    QFETCH(QString, name);
    for (const Entry &entry : Read(name).Entries)
        QVERIFY2(!entry.Key.endsWith(".Tag"), Name(entry).constData());
}

void TestLanguageFiles::everyWindowHasATitle()
{
    // A title that the language does not give is emptied.
    QFETCH(QString, name);
    const Language language = Read(name);
    QVERIFY(language.Sections.size() > 1);
    for (const QByteArray &section : language.Sections) {
        if (section == "Strings")
            continue;
        QByteArray title;
        for (const Entry &entry : language.Entries)
            if (entry.Section == section && entry.Key == section + ".Caption")
                title = entry.Value;
        QVERIFY2(!title.isEmpty(), section.constData());
    }
}

void TestLanguageFiles::noSectionAndNoKeyStandsTwice()
{
    QFETCH(QString, name);
    const Language language = Read(name);
    QSet<QByteArray> seen;
    for (const QByteArray &section : language.Sections) {
        QVERIFY2(!seen.contains(section.toLower()), section.constData());
        seen << section.toLower();
    }
    for (const Entry &entry : language.Entries) {
        QVERIFY2(!seen.contains(Name(entry).toLower()), Name(entry).constData());
        seen << Name(entry).toLower();
    }
}

void TestLanguageFiles::noKeyBeginsAnother()
{
    // In a file that has grown large a key also finds a longer one that begins with it.
    QFETCH(QString, name);
    const QList<Entry> entries = Read(name).Entries;
    for (const Entry &entry : entries)
        for (const Entry &other : entries)
            QVERIFY2(entry.Key == other.Key || !other.Key.startsWith(entry.Key),
                     (entry.Key + " begins " + other.Key).constData());
}

void TestLanguageFiles::piecesThatGetTheirBlanksFromTheProgramHaveNoneOfTheirOwn()
{
    QFETCH(QString, name);
    const Language language = Read(name);
    for (int number = 4; number <= 40; ++number) {
        const QByteArray key = QByteArray::number(number).rightJustified(4, '0');
        QCOMPARE(language.Text(key), language.Text(key).simplified());
    }
    QCOMPARE(language.Text("0105"), language.Text("0105").simplified());
}

void TestLanguageFiles::openingsThatGetNoBlankEndInOne()
{
    QFETCH(QString, name);
    const Language language = Read(name);
    for (const char *key :
         {"0074", "0082", "0083", "0084", "0085", "0086", "0087", "0088", "0089", "0090", "0092"})
        QCOMPARE(language.Text(key), language.Text(key).simplified() + ' ');
}

void TestLanguageFiles::theFiguresFindTheirVariable()
{
    QFETCH(QString, name);
    QCOMPARE(Read(name).Text("0103"), QByteArray("TestoColore.QualeColore"));
}

void TestLanguageFiles::everyLanguageNamesTheSameKeysAsItalian()
{
    QFETCH(QString, name);
    const auto names = [](const QString &file) {
        QList<QByteArray> list;
        for (const Entry &entry : Read(file).Entries)
            list << Name(entry);
        return list;
    };
    const QList<QByteArray> own = names(name);
    const QList<QByteArray> italian = names(QStringLiteral("italiano.lng"));
    for (const QByteArray &entry : italian)
        QVERIFY2(own.contains(entry), ("missing " + entry).constData());
    for (const QByteArray &entry : own)
        QVERIFY2(italian.contains(entry), ("unknown " + entry).constData());
}

MORLENE_TEST(TestLanguageFiles)
#include "test_language_files.moc"
