// Text files byte by byte: the code page, lines and numbers as written, and the field rules.
#include "support/folder_host.h"

#include "platform/files/files.h"
#include "support/registered_tests.h"

#include <QLocale>
#include <QTest>

#include <clocale>
#include <limits>

using namespace platform;

namespace {

QString S(const char *text)
{
    return QString::fromUtf8(text);
}

// All fields up to the end, each in square brackets, and the error that ended it.
QByteArray Fields(const QByteArray &content)
{
    RecordReader reader(content);
    QByteArray fields;
    const int error = ErrorOf([&] {
        while (!reader.AtEnd())
            fields += '[' + ToCodePage(reader.Text()) + ']';
    });
    return error == 0 ? fields : fields + QByteArray::number(error);
}

QByteArray Written(FolderHost &host, double value)
{
    TextWriter file(S("C:\\number"));
    file.PrintNumber(value);
    file.Close();
    return FolderHost::Get(host.Drive + S("number"));
}

} // namespace

class TestTextFile : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void everyByteComesBackAsItself();
    void theEuroAndTheQuotesHaveTheirPlaces();
    void aLetterOutsideTheCodePageBecomesAQuestionMark();
    void digitsOfAnyScriptAreWrittenAsLatinOnes();
    void linesEndInCarriageReturnAndLineFeed();
    void nothingIsLostBeforeTheFileIsClosed();
    void aFileThatIsNotClosedIsWrittenAtItsEnd();
    void aClosedFileTakesNothingMore();
    void aNumberIsWritten_data();
    void aNumberIsWritten();
    void fieldsFollowTheRules_data();
    void fieldsFollowTheRules();
    void pastTheEndIsAnError();
    void anUnclosedQuoteRunsToTheEnd();
    void aNumberIsRead_data();
    void aNumberIsRead();
    void aNumberIsRefused_data();
    void aNumberIsRefused();
    void integersAreRoundedHalvesToEven();
    void integersHaveSixteenBits();
    void theRestOfALineIsReadAsItStands();
    void numbersDoNotFollowTheLocale();
    void whatIsWrittenIsReadAgain();
    void tenMegabytesOfNoiseEndSoon();
};

void TestTextFile::cleanup()
{
    QLocale::setDefault(QLocale::c());
    std::setlocale(LC_ALL, "C");
}

void TestTextFile::everyByteComesBackAsItself()
{
    for (int value = 0; value < 256; ++value) {
        const QByteArray byte(1, static_cast<char>(value));
        QCOMPARE(FromCodePage(byte).size(), 1);
        QCOMPARE(ToCodePage(FromCodePage(byte)), byte);
    }
    for (const char16_t open : {u'\x81', u'\x8D', u'\x8F', u'\x90', u'\x9D'})
        QCOMPARE(FromCodePage(QByteArray(1, static_cast<char>(open))), QString(QChar(open)));
}

void TestTextFile::theEuroAndTheQuotesHaveTheirPlaces()
{
    QCOMPARE(ToCodePage(S("€‚ƒ„…†‡ˆ‰Š‹ŒŽ‘’“”•–—˜™š›œžŸ")),
             QByteArray("\x80\x82\x83\x84\x85\x86\x87\x88\x89\x8A\x8B\x8C\x8E\x91\x92\x93\x94\x95"
                        "\x96\x97\x98\x99\x9A\x9B\x9C\x9E\x9F"));
    QCOMPARE(FromCodePage("\x80 perch\xE9 \x9F"), S("€ perché Ÿ"));
}

void TestTextFile::digitsOfAnyScriptAreWrittenAsLatinOnes()
{
    QCOMPARE(ToCodePage(S("٢١/١١/٢٠٢٦ ۲۱/۱۱")), QByteArray("21/11/2026 21/11"));
    QCOMPARE(ToCodePage(QStringLiteral("\u0662\u0661\u200F/\u0661")), QByteArray("21/1"));
    QCOMPARE(ToCodePage(S("m²")), QByteArray("m\xB2"));
}

void TestTextFile::aLetterOutsideTheCodePageBecomesAQuestionMark()
{
    QCOMPARE(ToCodePage(S("aжb😀c")), QByteArray("a?b?c"));
    QCOMPARE(ToCodePage(QString(QChar(0xD800)) + S("x")), QByteArray("?x"));
    QCOMPARE(ToCodePage(QString(QChar(0xDC00)) + S("x")), QByteArray("?x"));
    // The control letters of Unicode whose bytes other letters hold.
    QCOMPARE(ToCodePage(QString(QChar(0x80))), QByteArray("?"));
    QCOMPARE(ToCodePage(QString(QChar(0x100))), QByteArray("?"));
}

void TestTextFile::linesEndInCarriageReturnAndLineFeed()
{
    FolderHost host;
    TextWriter file(S("C:\\a.ini"));
    file.PrintText(S("True"));
    file.PrintText(QString());
    file.PrintText(S("è, \"x\" "));
    file.PrintNumber(0);
    file.PrintNumber(-2147483630.0);
    file.Close();
    QCOMPARE(FolderHost::Get(host.Drive + S("a.ini")),
             QByteArray("True\r\n\r\n\xE8, \"x\" \r\n 0 \r\n-2147483630 \r\n"));
}

void TestTextFile::nothingIsLostBeforeTheFileIsClosed()
{
    FolderHost host;
    FolderHost::Put(host.Drive + S("a.ini"), "old content\r\n");
    TextWriter file(S("C:\\a.ini"));
    file.PrintText(S("new"));
    QCOMPARE(FolderHost::Get(host.Drive + S("a.ini")), QByteArray("old content\r\n"));
    file.Close();
    QCOMPARE(FolderHost::Get(host.Drive + S("a.ini")), QByteArray("new\r\n"));
}

void TestTextFile::aFileThatIsNotClosedIsWrittenAtItsEnd()
{
    FolderHost host;
    {
        TextWriter file(S("C:\\a.ini"));
        file.PrintText(S("new"));
    }
    QCOMPARE(FolderHost::Get(host.Drive + S("a.ini")), QByteArray("new\r\n"));
}

void TestTextFile::aClosedFileTakesNothingMore()
{
    FolderHost host;
    TextWriter file(S("C:\\a.ini"));
    file.Close();
    file.Close();
    QCOMPARE(ErrorOf([&] { file.PrintText(S("x")); }), 52);
    QCOMPARE(ErrorOf([&] { file.PrintNumber(1); }), 52);
    QCOMPARE(FolderHost::Get(host.Drive + S("a.ini")), QByteArray());
}

void TestTextFile::aNumberIsWritten_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QByteArray>("written");
    QTest::newRow("nought") << 0.0 << QByteArray(" 0 \r\n");
    QTest::newRow("negative nought") << -0.0 << QByteArray(" 0 \r\n");
    QTest::newRow("whole") << 24.0 << QByteArray(" 24 \r\n");
    QTest::newRow("negative") << -7.0 << QByteArray("-7 \r\n");
    QTest::newRow("colour") << 16777088.0 << QByteArray(" 16777088 \r\n");
    QTest::newRow("system colour") << -2147483633.0 << QByteArray("-2147483633 \r\n");
    QTest::newRow("unsigned") << 4294967295.0 << QByteArray(" 4294967295 \r\n");
    QTest::newRow("point") << 1234.5 << QByteArray(" 1234.5 \r\n");
    QTest::newRow("half") << 0.5 << QByteArray(" .5 \r\n");
    QTest::newRow("minus half") << -0.5 << QByteArray("-.5 \r\n");
    QTest::newRow("15 digits") << 1.0 / 3 << QByteArray(" .333333333333333 \r\n");
    QTest::newRow("rounded") << 0.1 + 0.2 << QByteArray(" .3 \r\n");
    QTest::newRow("huge") << 1e20 << QByteArray(" 1E+20 \r\n");
}

void TestTextFile::aNumberIsWritten()
{
    QFETCH(double, value);
    QFETCH(QByteArray, written);
    FolderHost host;
    QCOMPARE(Written(host, value), written);
}

void TestTextFile::fieldsFollowTheRules_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QByteArray>("fields");
    const auto row = [](const char *name, const char *content, const char *fields) {
        QTest::newRow(name) << QByteArray(content) << QByteArray(fields);
    };
    row("nothing", "", "");
    row("one line", "abc\r\n", "[abc]");
    row("no line end", "abc", "[abc]");
    row("three ends", "a\r\nb\nc\rd", "[a][b][c][d]");
    row("line feed, carriage return", "a\n\rb", "[a][][b]");
    row("empty lines", "\r\n\r\n\r\n", "[][][]");
    row("comma", "a,b\r\n", "[a][b]");
    row("comma and blank", "rosso, scuro\r\nx", "[rosso][scuro][x]");
    row("commas", ",,\r\n", "[][][]");
    row("comma at the end", "a,", "[a]");
    row("leading blanks", " \t a\r\n", "[a]");
    row("trailing blanks", "a \t\r\nb ,c", "[a \t][b ][c]");
    row("blanks alone", "  \r\nx", "[][x]");
    row("blanks at the end", "x\r\n  ", "[x][]");
    row("quoted", "\"a,b\"\r\nc", "[a,b][c]");
    row("quoted blanks", "  \" a \"\r\n", "[ a ]");
    row("quoted lines", "\"a\r\nb\"\r\nc", "[a\r\nb][c]");
    row("behind the quote", "\"a\" rest \"more\",b\r\nc", "[a][b][c]");
    row("doubled quote", "\"a\"\"b\"\r\nc", "[a][c]");
    row("empty quotes", "\"\"\r\nc", "[][c]");
    row("quote within", "a\"b,c\"\r\n", "[a\"b][c\"]");
    row("quote at the end", "\"a\"", "[a]");
    row("unclosed quote", "x\r\n\"a\r\nb,c\r\n", "[x]62");
    row("single quotes", "'a,b'", "['a][b']");
    row("other bytes", "\xE8\x1A\xA0", "[\xE8\x1A\xA0]");
    QTest::newRow("nul") << QByteArray("a\0b\r\n", 5) << QByteArray("[a\0b]", 5);
}

void TestTextFile::fieldsFollowTheRules()
{
    QFETCH(QByteArray, content);
    QFETCH(QByteArray, fields);
    QCOMPARE(Fields(content), fields);
}

void TestTextFile::pastTheEndIsAnError()
{
    RecordReader reader(QByteArray("a\r\n"));
    QVERIFY(!reader.AtEnd());
    QCOMPARE(reader.Text(), S("a"));
    QVERIFY(reader.AtEnd());
    QCOMPARE(ErrorOf([&] { reader.Text(); }), 62);
    QCOMPARE(ErrorOf([&] { reader.Number(); }), 62);
    QCOMPARE(ErrorOf([&] { reader.Integer(); }), 62);
    QCOMPARE(ErrorOf([&] { reader.Line(); }), 62);
}

void TestTextFile::anUnclosedQuoteRunsToTheEnd()
{
    RecordReader reader(QByteArray("\"a\r\nb\r\n"));
    QCOMPARE(ErrorOf([&] { reader.Text(); }), 62);
    QVERIFY(reader.AtEnd());
}

void TestTextFile::aNumberIsRead_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<double>("value");
    const auto row = [](const char *text, double value) {
        QTest::newRow(text) << QByteArray(text) << value;
    };
    row(" 0 ", 0);
    row("-2147483630 ", -2147483630.0);
    row(" 16777088 ", 16777088.0);
    row("+5", 5);
    row("2.5", 2.5);
    row(".5", 0.5);
    row("-.5", -0.5);
    row("5.", 5);
    row("1E+20", 1e20);
    row("1e3", 1000);
    row("1d3", 1000);
    row("25E-1", 2.5);
    row("007", 7);
    row("1e-999", 0);
    row("\t8\t", 8);
    row("\"8\"", 8);
    row("8,9", 8);
}

void TestTextFile::aNumberIsRead()
{
    QFETCH(QByteArray, text);
    QFETCH(double, value);
    RecordReader reader(text + "\r\n");
    QCOMPARE(reader.Number(), value);
}

void TestTextFile::aNumberIsRefused_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("error");
    for (const char *text :
         {"",    "  ",    "x",    "12x",  "x12",  "1 2",   "- 5",   "&H10", "0x10", "1.2.3",
          "1e",  "1e+",   "e5",   ".",    "+",    "-",     "--5",   "inf",  "nan",  "INFINITY",
          "1_0", "1'000", "True", "\"\"", "\xB2", "1\xA0", "1e5.0", "(5)",  "5-"})
        QTest::newRow(text) << QByteArray(text) << 13;
    QTest::newRow("nul") << QByteArray("1\0", 2) << 13;
    QTest::newRow("too large") << QByteArray("1e999") << 6;
    QTest::newRow("too large below") << QByteArray("-1e999") << 6;
}

void TestTextFile::aNumberIsRefused()
{
    QFETCH(QByteArray, text);
    QFETCH(int, error);
    RecordReader reader(text + "\r\n");
    QCOMPARE(ErrorOf([&] { reader.Number(); }), error);
}

void TestTextFile::integersAreRoundedHalvesToEven()
{
    RecordReader reader(QByteArray("0.5\r\n1.5\r\n2.5\r\n-0.5\r\n-1.5\r\n2.51\r\n2.4999\r\n"));
    for (const int expected : {0, 2, 2, 0, -2, 3, 2})
        QCOMPARE(int{reader.Integer()}, expected);
}

void TestTextFile::integersHaveSixteenBits()
{
    RecordReader reader(QByteArray("32767\r\n-32768\r\n32767.4\r\n32768\r\n-32769\r\n32767.5\r\n"
                                   "1e10\r\n-1e300\r\n4294967296\r\n"));
    QCOMPARE(int{reader.Integer()}, 32767);
    QCOMPARE(int{reader.Integer()}, -32768);
    QCOMPARE(int{reader.Integer()}, 32767);
    for (int i = 0; i < 6; ++i)
        QCOMPARE(ErrorOf([&] { reader.Integer(); }), 6);
}

void TestTextFile::theRestOfALineIsReadAsItStands()
{
    RecordReader reader(QByteArray("a, b \"c\" \r\n\r\nlast"));
    QCOMPARE(reader.Text(), S("a"));
    QCOMPARE(reader.Line(), S(" b \"c\" "));
    QCOMPARE(reader.Line(), QString());
    QCOMPARE(reader.Line(), S("last"));
    QVERIFY(reader.AtEnd());
}

void TestTextFile::numbersDoNotFollowTheLocale()
{
    FolderHost host;
    QLocale::setDefault(QLocale(QLocale::Italian, QLocale::Italy));
    // At most one of these is installed; the C library's own numbers follow it then.
    bool comma = false;
    for (const char *name : {"it_IT.UTF-8", "it_IT.utf8", "de_DE.UTF-8", "de_DE.utf8"})
        comma = comma || std::setlocale(LC_ALL, name) != nullptr;
    QCOMPARE(Written(host, 1234.5), QByteArray(" 1234.5 \r\n"));
    RecordReader reader(QByteArray("1234.5\r\n\"1234,5\"\r\n"));
    QCOMPARE(reader.Number(), 1234.5);
    QCOMPARE(ErrorOf([&] { reader.Number(); }), 13);
}

void TestTextFile::whatIsWrittenIsReadAgain()
{
    FolderHost host;
    const QList<double> numbers = {
        0, 1, -1, 0.5, -2147483633.0, 4294967295.0, 1e100, 0.1, 123456.75, 999999999999999.0};
    TextWriter file(S("C:\\Anna.ini"));
    for (const double number : numbers)
        file.PrintNumber(number);
    file.PrintText(S("perché no? € "));
    file.Close();
    RecordReader reader(S("C:\\ANNA.INI"));
    for (const double number : numbers)
        QCOMPARE(reader.Number(), number);
    QCOMPARE(reader.Text(), S("perché no? € "));
    QVERIFY(reader.AtEnd());
}

void TestTextFile::tenMegabytesOfNoiseEndSoon()
{
    constexpr qsizetype Size = 10 * 1024 * 1024;
    uint32_t state = 1;
    for (const char *letters : {"\",\r\n ab", "\"", ",", "1", "\r", " "}) {
        const QByteArray choice(letters);
        // Noise of one letter is the worst of its kind; a tenth of it tells enough.
        QByteArray noise(choice.size() > 1 ? Size : Size / 10, ' ');
        for (char &byte : noise) {
            state = state * 1664525U + 1013904223U;
            byte = choice.at(static_cast<qsizetype>((state >> 16U) % uint32_t(choice.size())));
        }
        RecordReader texts(noise);
        qsizetype length = 0;
        ErrorOf([&] {
            while (!texts.AtEnd())
                length += texts.Text().size();
        });
        QVERIFY(texts.AtEnd());
        QVERIFY(length <= Size);
        // A field that is no number is passed too.
        RecordReader numbers(noise.left(10'000));
        while (!numbers.AtEnd())
            ErrorOf([&] { numbers.Integer(); });
    }
}

MORLENE_TEST(TestTextFile)
#include "test_text_file.moc"
