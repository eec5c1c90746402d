#include "platform/base/fitted_text.h"

#include <QFont>
#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>
#include <QRect>
#include <QRegularExpression>
#include <QSet>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

namespace platform {

namespace {

constexpr int SmallestPixels = 6; // smaller letters are no letters
// In sizes of the letters. Lines stand as close as their ink allows before letters become smaller,
// and take what room is left afterwards.
constexpr double CloseLines = 0.12; // between the ink of two lines
constexpr double EasyLines = 0.30;
constexpr double CloseSentences = 0.12; // on top of that between two sentences
constexpr double EasySentences = 0.50;
constexpr int Steps = 8; // from close to easy
constexpr double BetweenColumns = 1.5;

// What lines are spaced for in any text, so that two words side by side stand on one height.
const QString UsualLetters = QStringLiteral("Edfglp");

int ToPixelSize(double points)
{
    return std::max(1, static_cast<int>(std::lround(points * 4 / 3)));
}

QFont FontOf(const Font &font, int pixels)
{
    QFont result = ToQFont(font, font.Size);
    result.setPixelSize(pixels);
    return result;
}

QStringList SentencesOf(QString text)
{
    static const QRegularExpression lineBreak(QStringLiteral("\r\n|\r|\n"));
    text.replace(lineBreak, QStringLiteral("\n"));
    // A last line break ends a line and opens no empty one.
    if (text.endsWith(QLatin1Char('\n')))
        text.chop(1);
    return text.split(QLatin1Char('\n'));
}

// Takes the "&" before the letter of a mnemonic away and tells where that letter stands; -1: none.
int TakeMnemonic(QString &text)
{
    int underlined = -1;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text.at(i) != QLatin1Char('&'))
            continue;
        text.remove(i, 1);
        if (i < text.size() && text.at(i) != QLatin1Char('&'))
            underlined = static_cast<int>(i);
    }
    return underlined;
}

// False when a word is wider than the line.
bool BreakLines(QTextLayout &layout, double width, Qt::Alignment alignment)
{
    QTextOption option(alignment);
    option.setWrapMode(QTextOption::WordWrap);
    layout.setTextOption(option);
    bool whole = true;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        whole = whole && line.naturalTextWidth() <= width;
    }
    layout.endLayout();
    return whole;
}

// How many sentences each column takes, none higher than `most`; earlier ones take what they can.
std::vector<int> Fill(const std::vector<double> &heights, double gap, double most)
{
    std::vector<int> columns;
    double height = 0;
    for (const double sentence : heights) {
        if (columns.empty() || height + gap + sentence > most) {
            columns.push_back(0);
            height = sentence;
        } else {
            height += gap + sentence;
        }
        ++columns.back();
    }
    return columns;
}

// The same in at most so many columns, with the highest as low as can be.
std::vector<int> FillEvenly(const std::vector<double> &heights, double gap, int mostColumns)
{
    std::vector<double> sums;
    for (size_t from = 0; from < heights.size(); ++from) {
        double sum = -gap;
        for (size_t to = from; to < heights.size(); ++to) {
            sum += gap + heights.at(to);
            sums.push_back(sum);
        }
    }
    std::sort(sums.begin(), sums.end());
    const double tallest = *std::max_element(heights.begin(), heights.end());
    for (const double sum : sums) {
        // A hair more, since sums come in another order.
        std::vector<int> columns = Fill(heights, gap, sum + 0.01);
        if (sum >= tallest && static_cast<int>(columns.size()) <= mostColumns)
            return columns;
    }
    return {static_cast<int>(heights.size())};
}

} // namespace

// How far letters reach, in pixels: above and below the base line, and out of their own width at
// the ends of a line, as joined-up letters do.
struct FittedText::LetterReach {
    double Ascent = 0;
    double Descent = 0;
    double Left = 0;
    double Right = 0;
};

struct FittedText::Sheet {
    QFont Letters;
    LetterReach Reach;
    double Gap = 0;         // between the ink of two lines
    double SentenceGap = 0; // between the ink of two sentences
    int Columns = 1;
    double ColumnWidth = 0; // of a line, without what letters reach out of it
    double ColumnStep = 0;  // from column to column

    double InkHeight() const { return Reach.Ascent + Reach.Descent; }
    double LineHeight() const { return InkHeight() + Gap; }
    std::vector<double> Heights(const std::vector<int> &lines) const
    {
        std::vector<double> heights;
        heights.reserve(lines.size());
        for (const int count : lines)
            heights.push_back(count * LineHeight() - Gap);
        return heights;
    }
};

FittedText::FittedText(const QString &text, const Font &font, const QSize &room, int flags,
                       int mostColumns)
    : m_sentences(SentencesOf(text)), m_font(font), m_room(room), m_flags(flags),
      m_mostColumns(mostColumns)
{
    if ((flags & Qt::TextShowMnemonic) != 0)
        m_underlined = TakeMnemonic(m_sentences.first());
    const int own = ToPixelSize(font.Size);
    m_reach = std::make_unique<LetterReach>(ReachOfLetters());

    int best = 0;
    const int most = std::min(mostColumns, static_cast<int>(m_sentences.size()));
    for (int columns = 1; columns <= most && best < own; ++columns) {
        // A further column has to give larger letters. `low` fits, or nothing is known to fit.
        int low = std::max(best, std::min(own, SmallestPixels) - 1);
        if (Fits(own, columns))
            low = own;
        else
            low = Largest(low, own, columns);
        if (low > best && low >= std::min(own, SmallestPixels)) {
            best = low;
            m_drawn.Columns = columns;
        }
    }
    m_drawn.Whole = best > 0;
    if (!m_drawn.Whole)
        best = std::min(own, SmallestPixels);
    m_drawn.Points = best == own ? font.Size : best * 0.75;
    m_measured.clear();
    LayOut(best);
}

FittedText::~FittedText() = default;

// By their outlines: the metrics of a font leave accents out that are put together with a letter.
FittedText::LetterReach FittedText::ReachOfLetters() const
{
    const QFont letters = FontOf(m_font, ToPixelSize(m_font.Size));
    QPainterPath outlines;
    QString each = UsualLetters;
    outlines.addText(0, 0, letters, UsualLetters);
    for (const QString &sentence : m_sentences) {
        outlines.addText(0, 0, letters, sentence);
        each += sentence;
    }
    const QRectF ink = outlines.boundingRect();
    LetterReach reach{.Ascent = -ink.top(), .Descent = ink.bottom()};
    const QFontMetricsF metrics(letters);
    for (const QChar letter : QSet<QChar>(each.cbegin(), each.cend())) {
        reach.Left = std::max(reach.Left, -metrics.leftBearing(letter));
        reach.Right = std::max(reach.Right, -metrics.rightBearing(letter));
    }
    return reach;
}

FittedText::Sheet FittedText::SheetAt(int pixels, int columns, int step) const
{
    const auto between = [&](double close, double easy) {
        return std::round(pixels * (close + (easy - close) * step / Steps));
    };
    Sheet sheet;
    sheet.Letters = FontOf(m_font, pixels);
    sheet.Columns = columns;
    const double scale = static_cast<double>(pixels) / ToPixelSize(m_font.Size);
    // Letters are made to fit whole pixels, upwards too, and bold ones grow on all sides.
    const double more = m_font.Bold ? 1 : 0;
    const auto scaled = [&](double reach) { return std::ceil(reach * scale) + more; };
    sheet.Reach = {scaled(m_reach->Ascent) + 1, scaled(m_reach->Descent), scaled(m_reach->Left),
                   scaled(m_reach->Right) + more};
    sheet.Gap = between(CloseLines, EasyLines);
    // Only columns tell sentences from lines.
    sheet.SentenceGap = sheet.Gap;
    if (m_mostColumns > 1)
        sheet.SentenceGap += between(CloseSentences, EasySentences);
    const double gap = std::round(pixels * BetweenColumns);
    const double column = std::floor((m_room.width() - (columns - 1) * gap) / columns);
    sheet.ColumnStep = column + gap;
    sheet.ColumnWidth = column - sheet.Reach.Left - sheet.Reach.Right;
    return sheet;
}

// Of each sentence; empty when a word is wider than a column.
std::vector<int> FittedText::Lines(const Sheet &sheet) const
{
    std::vector<int> lines;
    for (const QString &sentence : m_sentences) {
        QTextLayout layout(sentence, sheet.Letters);
        if (!BreakLines(layout, sheet.ColumnWidth, Qt::AlignLeft))
            return {};
        lines.push_back(std::max(1, layout.lineCount()));
    }
    return lines;
}

// The same in letters of the font's own size and a room enlarged as much, so that one font serves a
// whole search. `ease` makes the room wider; letters of another size are never quite in proportion.
std::vector<int> FittedText::LinesInProportion(const Sheet &sheet, double ease) const
{
    if (m_measured.empty())
        for (const QString &sentence : m_sentences) {
            const QFont letters = FontOf(m_font, ToPixelSize(m_font.Size));
            m_measured.push_back(std::make_unique<QTextLayout>(sentence, letters));
            m_measured.back()->setCacheEnabled(true);
        }
    const double scale = static_cast<double>(ToPixelSize(m_font.Size)) / sheet.Letters.pixelSize();
    std::vector<int> lines;
    for (const auto &layout : m_measured) {
        if (!BreakLines(*layout, sheet.ColumnWidth * scale * (1 + ease), Qt::AlignLeft))
            return {};
        lines.push_back(std::max(1, layout->lineCount()));
    }
    return lines;
}

bool FittedText::Fits(const Sheet &sheet, const std::vector<int> &lines) const
{
    if (lines.empty())
        return false;
    const std::vector<double> heights = sheet.Heights(lines);
    return *std::max_element(heights.begin(), heights.end()) <= m_room.height() &&
           static_cast<int>(Fill(heights, sheet.SentenceGap, m_room.height()).size()) <=
               sheet.Columns;
}

bool FittedText::Fits(int pixels, int columns) const
{
    const Sheet sheet = SheetAt(pixels, columns);
    return sheet.ColumnWidth > 0 && sheet.InkHeight() <= m_room.height() &&
           Fits(sheet, Lines(sheet));
}

bool FittedText::MayFit(int pixels, int columns, double ease) const
{
    const Sheet sheet = SheetAt(pixels, columns);
    return sheet.ColumnWidth > 0 && sheet.InkHeight() <= m_room.height() &&
           Fits(sheet, LinesInProportion(sheet, ease));
}

// The largest size above `low` and below `high` that fits; `low` when none does. Each size that is
// tried in earnest costs a font, so they are guessed first.
int FittedText::Largest(int low, int high, int columns) const
{
    int guess = low;
    for (int tooLarge = high; tooLarge - guess > 1;) {
        const int middle = (guess + tooLarge) / 2;
        (MayFit(middle, columns, 0) ? guess : tooLarge) = middle;
    }
    while (guess > low && !Fits(guess, columns))
        --guess;
    // Advances are rounded to whole pixels, which tells most in small letters.
    const auto mayGrow = [&](int pixels) {
        return pixels < high && MayFit(pixels, columns, 0.02 + 0.5 / pixels);
    };
    while (mayGrow(guess + 1) && Fits(guess + 1, columns))
        ++guess;
    return guess;
}

void FittedText::LayOut(int pixels)
{
    const auto alignment = Qt::Alignment(m_flags & Qt::AlignHorizontal_Mask);
    Sheet sheet = SheetAt(pixels, m_drawn.Columns);
    std::vector<int> lines;
    for (const QString &sentence : m_sentences) {
        auto layout = std::make_unique<QTextLayout>(sentence, sheet.Letters);
        if (m_underlined >= 0 && m_laid.empty()) {
            QTextLayout::FormatRange letter;
            letter.start = m_underlined;
            letter.length = 1;
            letter.format.setFontUnderline(true);
            layout->setFormats({letter});
        }
        BreakLines(*layout, std::max(1.0, sheet.ColumnWidth), alignment);
        lines.push_back(std::max(1, layout->lineCount()));
        m_laid.push_back(std::move(layout));
    }
    for (int step = Steps; step > 0; --step) {
        const Sheet easier = SheetAt(pixels, m_drawn.Columns, step);
        if (Fits(easier, lines)) {
            sheet = easier;
            break;
        }
    }
    PutInPlace(sheet, sheet.Heights(lines));
}

void FittedText::PutInPlace(const Sheet &sheet, const std::vector<double> &heights)
{
    const std::vector<int> columns = FillEvenly(heights, sheet.SentenceGap, sheet.Columns);
    // All columns start on the height of the tallest.
    double tallest = 0;
    size_t sentence = 0;
    for (const int count : columns) {
        double height = (count - 1) * sheet.SentenceGap;
        for (int i = 0; i < count; ++i, ++sentence)
            height += heights.at(sentence);
        tallest = std::max(tallest, height);
    }
    const double spare = m_room.height() - tallest;
    // Above the first line there is as much room as the font itself would leave.
    const double usual = QFontMetricsF(sheet.Letters).ascent() - sheet.Reach.Ascent;
    const bool centred = (m_flags & Qt::AlignVCenter) != 0;
    const double start =
        std::floor(centred ? spare / 2 : std::clamp(spare / 2, 0.0, std::max(0.0, usual)));

    sentence = 0;
    double left = sheet.Reach.Left;
    for (const int count : columns) {
        double top = start;
        for (int i = 0; i < count; ++i, ++sentence) {
            QTextLayout &layout = *m_laid.at(sentence);
            for (int number = 0; number < layout.lineCount(); ++number) {
                QTextLine line = layout.lineAt(number);
                const double base = top + sheet.Reach.Ascent + number * sheet.LineHeight();
                // The toolkit rounds the height of the base line down.
                line.setPosition({left, base - line.ascent() + 0.1});
            }
            top += heights.at(sentence) + sheet.SentenceGap;
        }
        left += sheet.ColumnStep;
    }
}

void FittedText::Draw(QPainter &painter, const QPoint &corner) const
{
    for (const auto &layout : m_laid)
        layout->draw(&painter, corner);
}

void DrawFitted(QPainter &painter, const QRect &room, int flags, const QString &text,
                const Font &font)
{
    FittedText(text, font, room.size(), flags).Draw(painter, room.topLeft());
}

} // namespace platform
