// Text files of the program, written line by line and read field by field.
#include "platform/files.h"

#include "platform/errors.h"
#include "platform/file_rights.h"

#include <QLocale>

#include <cmath>

namespace platform {

struct TextWriter::State {
    QString Native;
    QByteArray Content;
    bool Open = true;
};

TextWriter::TextWriter(const QString &path) : m_state(std::make_unique<State>())
{
    m_state->Native = NativePath(path);
    ProbeForWriting(m_state->Native);
}

TextWriter::~TextWriter()
{
    Skipping([this] { Close(); });
}

void TextWriter::PrintText(const QString &line) { m_state->Content += ToCodePage(line) + "\r\n"; }

void TextWriter::PrintNumber(double value)
{
    constexpr int Digits = 15;
    QByteArray number = QByteArray::number(value, 'g', Digits).toUpper();
    if (!number.startsWith('-'))
        number.prepend(' ');
    m_state->Content += number + " \r\n";
}

void TextWriter::Close()
{
    if (!m_state->Open)
        return;
    m_state->Open = false;
    WriteWhole(m_state->Native, m_state->Content);
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

bool RecordReader::AtEnd() const { return m_state->End(); }

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
        if (quote < 0)
            throw RunTimeError(InputPastEnd);
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
    QString text = Text();
    while (text.endsWith(QLatin1Char(' ')) || text.endsWith(QLatin1Char('\t')))
        text.chop(1);
    // A sign, digits, a point, an exponent; nothing else, whatever the locale.
    for (const QChar letter : text)
        if (!QStringLiteral("0123456789+-.eEdD").contains(letter))
            throw RunTimeError(TypeMismatch, text);
    bool number = false;
    const double value = text.replace(QLatin1Char('d'), QLatin1Char('e'), Qt::CaseInsensitive)
                             .toDouble(&number);
    if (!number || !std::isfinite(value))
        throw RunTimeError(TypeMismatch, text);
    return value;
}

int16_t RecordReader::Integer() { return Integer16(RoundToLong(Number())); }

QString RecordReader::Line()
{
    State &state = *m_state;
    if (state.End())
        throw RunTimeError(InputPastEnd);
    const qsizetype start = state.At;
    while (!state.AtLineEnd())
        ++state.At;
    const QString line = FromCodePage(state.Content.mid(start, state.At - start));
    state.SkipLineEnd();
    return line;
}

} // namespace platform
