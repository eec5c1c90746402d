// Text files of the program, written line by line and read field by field.
#include "platform/files/files.h"

#include "platform/base/errors.h"
#include "platform/files/file_access.h"

#include <charconv>
#include <system_error>

namespace platform {

namespace {

constexpr int SignificantDigits = 15;

QByteArray PrintedNumber(double value)
{
    // The sum makes a negative nought a plain one.
    QByteArray number = QByteArray::number(value + 0.0, 'g', SignificantDigits).toUpper();
    if (number.startsWith("0."))
        number.remove(0, 1);
    else if (number.startsWith("-0."))
        number.remove(1, 1);
    return number.startsWith('-') ? number : ' ' + number;
}

bool IsDigit(char letter)
{
    return letter >= '0' && letter <= '9';
}

// Passes the digits from `at` on and tells how many there were.
qsizetype PassDigits(const QByteArray &text, qsizetype &at)
{
    const qsizetype start = at;
    while (at < text.size() && IsDigit(text.at(at)))
        ++at;
    return at - start;
}

void PassSign(const QByteArray &text, qsizetype &at)
{
    if (at < text.size() && (text.at(at) == '+' || text.at(at) == '-'))
        ++at;
}

// A sign, digits, a point, an exponent; nothing else, whatever the locale.
bool IsNumber(const QByteArray &text)
{
    qsizetype at = 0;
    PassSign(text, at);
    qsizetype digits = PassDigits(text, at);
    if (at < text.size() && text.at(at) == '.')
        digits += PassDigits(text, ++at);
    if (digits == 0)
        return false;
    if (at < text.size() && text.at(at) == 'e') {
        PassSign(text, ++at);
        if (PassDigits(text, at) == 0)
            return false;
    }
    return at == text.size();
}

} // namespace

struct TextWriter::State {
    explicit State(const QString &path) : File(Locate(path)) {}

    OutputFile File;
    QByteArray Content;
    bool Open = true;
};

TextWriter::TextWriter(const QString &path) : m_state(std::make_unique<State>(path)) {}

TextWriter::~TextWriter()
{
    Skipping([this] { Close(); });
}

void TextWriter::PrintText(const QString &line)
{
    if (!m_state->Open)
        throw RunTimeError(BadFileNameOrNumber);
    m_state->Content += ToCodePage(line) + "\r\n";
}

void TextWriter::PrintNumber(double value)
{
    if (!m_state->Open)
        throw RunTimeError(BadFileNameOrNumber);
    m_state->Content += PrintedNumber(value) + " \r\n";
}

void TextWriter::Close()
{
    if (!m_state->Open)
        return;
    m_state->Open = false;
    m_state->File.Replace(m_state->Content);
}

struct RecordReader::State {
    QByteArray Content;
    qsizetype At = 0;

    bool End() const { return At >= Content.size(); }
    char Here() const { return Content.at(At); }
    bool AtLineEnd() const { return End() || Here() == '\r' || Here() == '\n'; }
    void SkipBlanks()
    {
        while (!End() && (Here() == ' ' || Here() == '\t'))
            ++At;
    }
    void SkipLineEnd()
    {
        if (End())
            return;
        const bool carriageReturn = Here() == '\r';
        ++At;
        if (carriageReturn && !End() && Here() == '\n')
            ++At;
    }
    // Over the comma or the line end that ends a field.
    void SkipSeparator()
    {
        if (!End() && Here() == ',')
            ++At;
        else
            SkipLineEnd();
    }
};

RecordReader::RecordReader(const QString &path) : RecordReader(ReadFile(path)) {}

RecordReader::RecordReader(const QByteArray &content) : m_state(std::make_unique<State>())
{
    m_state->Content = content;
}

RecordReader::~RecordReader() = default;

bool RecordReader::AtEnd() const
{
    return m_state->End();
}

QString RecordReader::Text()
{
    State &state = *m_state;
    if (state.End())
        throw RunTimeError(InputPastEnd);
    state.SkipBlanks();
    qsizetype start = state.At;
    QByteArray field;
    if (!state.End() && state.Here() == '"') {
        ++start;
        const qsizetype quote = state.Content.indexOf('"', start);
        if (quote < 0) {
            state.At = state.Content.size();
            throw RunTimeError(InputPastEnd);
        }
        field = state.Content.mid(start, quote - start);
        state.At = quote + 1;
        while (!state.AtLineEnd() && state.Here() != ',')
            ++state.At;
    } else {
        while (!state.AtLineEnd() && state.Here() != ',')
            ++state.At;
        field = state.Content.mid(start, state.At - start);
    }
    state.SkipSeparator();
    return FromCodePage(field);
}

double RecordReader::Number()
{
    const QString field = Text();
    QByteArray text = ToCodePage(field).toLower();
    while (text.endsWith(' ') || text.endsWith('\t'))
        text.chop(1);
    text.replace('d', 'e');
    if (!IsNumber(text))
        throw RunTimeError(TypeMismatch);
    if (text.startsWith('+'))
        text.remove(0, 1);
    double value = 0;
    const auto result = std::from_chars(text.constData(), text.constData() + text.size(), value);
    // Too small to tell from nought, or too large.
    const bool small = text.contains("e-") || text.startsWith('.') || text.startsWith("0.");
    if (result.ec == std::errc::result_out_of_range && !small)
        throw RunTimeError(Overflow);
    return value;
}

int16_t RecordReader::Integer()
{
    return Integer16(RoundToLong(Number()));
}

QString RecordReader::Line()
{
    State &state = *m_state;
    if (state.End())
        throw RunTimeError(InputPastEnd);
    const qsizetype start = state.At;
    while (!state.AtLineEnd())
        ++state.At;
    QString line = FromCodePage(state.Content.mid(start, state.At - start));
    state.SkipLineEnd();
    return line;
}

} // namespace platform
