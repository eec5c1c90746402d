// The language files as they lie on disk, read by their bytes: right for both ways in which the
// program reads them, and complete.
#include "support/language_file.h"
#include "support/registered_tests.h"

#include <QFile>
#include <QSet>
#include <QTest>

namespace {

constexpr qsizetype LongestValue = 511;  // letters that the reader gives
constexpr qsizetype LargestFile = 64000; // bytes; beyond, sections and unquoted values are lost
const QByteArray LetterlessBytes = QByteArrayLiteral("\x81\x8D\x8F\x90\x9D");

QByteArray Content(const QString &name)
{
    return ReadLanguageFile(name).Content;
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

} // namespace

class TestLanguageFiles : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theLanguageOfANewInstallationIsThere();

    void linesEndInCarriageReturnAndLineFeed_data() { RowsOfLanguages(); }
    void linesEndInCarriageReturnAndLineFeed();
    void everyByteIsALetterOfTheCodePage_data() { RowsOfLanguages(); }
    void everyByteIsALetterOfTheCodePage();
    void theFileIsSmallEnoughToBeReadBySections_data() { RowsOfLanguages(); }
    void theFileIsSmallEnoughToBeReadBySections();
    void everyLineIsANoteAHeadingOrAQuotedValue_data() { RowsOfLanguages(); }
    void everyLineIsANoteAHeadingOrAQuotedValue();
    void everyNumberedTextIsThere_data() { RowsOfLanguages(); }
    void everyNumberedTextIsThere();
    void noNumberedTextIsUnknown_data() { RowsOfLanguages(); }
    void noNumberedTextIsUnknown();
    void noValueIsLongerThanTheReaderGives_data() { RowsOfLanguages(); }
    void noValueIsLongerThanTheReaderGives();
    void noLanguageChangesATag_data() { RowsOfLanguages(); }
    void noLanguageChangesATag();
    void everyWindowHasATitle_data() { RowsOfLanguages(); }
    void everyWindowHasATitle();
    void noSectionAndNoKeyStandsTwice_data() { RowsOfLanguages(); }
    void noSectionAndNoKeyStandsTwice();
    void noKeyBeginsAnother_data() { RowsOfLanguages(); }
    void noKeyBeginsAnother();
    void piecesThatGetTheirBlanksFromTheProgramHaveNoneOfTheirOwn_data() { RowsOfLanguages(); }
    void piecesThatGetTheirBlanksFromTheProgramHaveNoneOfTheirOwn();
    void openingsThatGetNoBlankEndInOne_data() { RowsOfLanguages(); }
    void openingsThatGetNoBlankEndInOne();
    void theFiguresFindTheirVariable_data() { RowsOfLanguages(); }
    void theFiguresFindTheirVariable();
    void everyLanguageNamesTheSameKeysAsItalian_data() { RowsOfLanguages(); }
    void everyLanguageNamesTheSameKeysAsItalian();
};

void TestLanguageFiles::theLanguageOfANewInstallationIsThere()
{
    QFile setting(QStringLiteral(SOURCE_DIR "/data/lngmorlene/LangSetting.ini"));
    QVERIFY(setting.open(QIODevice::ReadOnly));
    QCOMPARE(setting.readAll(), QByteArray("[Language]\r\nCurrentLanguage=italiano\r\n"));
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
    const LanguageFile language = ReadLanguageFile(name);
    QVERIFY2(language.Strange.isEmpty(), language.Strange.join('\n').constData());
    QVERIFY(language.Sections.contains("Strings"));
}

void TestLanguageFiles::everyNumberedTextIsThere()
{
    QFETCH(QString, name);
    const LanguageFile language = ReadLanguageFile(name);
    QCOMPARE(Catalogue().size(), 101);
    for (const QByteArray &key : Catalogue())
        QVERIFY2(!language.Text("Strings", key).trimmed().isEmpty(), key.constData());
}

void TestLanguageFiles::noNumberedTextIsUnknown()
{
    QFETCH(QString, name);
    for (const LanguageEntry &entry : ReadLanguageFile(name).EntriesOf("Strings"))
        QVERIFY2(Catalogue().contains(entry.Key), entry.Key.constData());
}

void TestLanguageFiles::noValueIsLongerThanTheReaderGives()
{
    QFETCH(QString, name);
    for (const LanguageEntry &entry : ReadLanguageFile(name).Entries)
        QVERIFY2(entry.Value.size() <= LongestValue, entry.Name().constData());
}

void TestLanguageFiles::noLanguageChangesATag()
{
    QFETCH(QString, name);
    for (const LanguageEntry &entry : ReadLanguageFile(name).Entries)
        QVERIFY2(!entry.Key.endsWith(".Tag"), entry.Name().constData());
}

void TestLanguageFiles::everyWindowHasATitle()
{
    // A title that the language does not give is emptied.
    QFETCH(QString, name);
    const LanguageFile language = ReadLanguageFile(name);
    QVERIFY(!language.Windows().isEmpty());
    for (const QByteArray &window : language.Windows())
        QVERIFY2(!language.Text(window, window + ".Caption").isEmpty(), window.constData());
}

void TestLanguageFiles::noSectionAndNoKeyStandsTwice()
{
    QFETCH(QString, name);
    const LanguageFile language = ReadLanguageFile(name);
    QSet<QByteArray> seen;
    for (const QByteArray &section : language.Sections) {
        QVERIFY2(!seen.contains(section.toLower()), section.constData());
        seen << section.toLower();
    }
    for (const LanguageEntry &entry : language.Entries) {
        QVERIFY2(!seen.contains(entry.Name().toLower()), entry.Name().constData());
        seen << entry.Name().toLower();
    }
}

void TestLanguageFiles::noKeyBeginsAnother()
{
    // In a file that has grown large a key also finds a longer one that begins with it.
    QFETCH(QString, name);
    const QList<LanguageEntry> entries = ReadLanguageFile(name).Entries;
    for (const LanguageEntry &entry : entries)
        for (const LanguageEntry &other : entries)
            QVERIFY2(entry.Key == other.Key || !other.Key.startsWith(entry.Key),
                     (entry.Key + " begins " + other.Key).constData());
}

void TestLanguageFiles::piecesThatGetTheirBlanksFromTheProgramHaveNoneOfTheirOwn()
{
    QFETCH(QString, name);
    const LanguageFile language = ReadLanguageFile(name);
    for (int number = 4; number <= 40; ++number) {
        const QByteArray key = QByteArray::number(number).rightJustified(4, '0');
        QCOMPARE(language.Text("Strings", key), language.Text("Strings", key).simplified());
    }
    QCOMPARE(language.Text("Strings", "0105"), language.Text("Strings", "0105").simplified());
}

void TestLanguageFiles::openingsThatGetNoBlankEndInOne()
{
    QFETCH(QString, name);
    const LanguageFile language = ReadLanguageFile(name);
    for (const char *key :
         {"0074", "0082", "0083", "0084", "0085", "0086", "0087", "0088", "0089", "0090", "0092"})
        QCOMPARE(language.Text("Strings", key), language.Text("Strings", key).simplified() + ' ');
}

void TestLanguageFiles::theFiguresFindTheirVariable()
{
    QFETCH(QString, name);
    QCOMPARE(ReadLanguageFile(name).Text("Strings", "0103"), QByteArray("TestoColore.QualeColore"));
}

void TestLanguageFiles::everyLanguageNamesTheSameKeysAsItalian()
{
    QFETCH(QString, name);
    const auto names = [](const QString &file) {
        QList<QByteArray> list;
        for (const LanguageEntry &entry : ReadLanguageFile(file).Entries)
            list << entry.Name();
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
