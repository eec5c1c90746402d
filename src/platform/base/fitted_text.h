// Text drawn in the largest size in which all of it fits its place: no line is cut, no word broken.
#pragma once

#include "platform/base/font.h"

#include <QSize>
#include <QStringList>

#include <memory>
#include <vector>

class QFont;
class QPainter;
class QPoint;
class QRect;
class QTextLayout;

namespace platform {

// How a text came out in its place.
struct DrawnText {
    double Points = 0; // up to the font's own
    int Columns = 1;
    bool Whole = true; // false only in a place that is too small for any size
};

// A text laid out in its place. What is drawn are the very lines that were measured.
class FittedText {
public:
    // `room` in logical pixels; `flags` are Qt's alignment flags, and Qt::TextShowMnemonic. A line
    // break ends a sentence. With `mostColumns` above 1 whole sentences may stand in columns of one
    // width, to be read downwards: in as many as give the largest letters, and in no more.
    FittedText(const QString &text, const Font &font, const QSize &room, int flags,
               int mostColumns = 1);
    ~FittedText();
    FittedText(const FittedText &) = delete;
    FittedText &operator=(const FittedText &) = delete;

    const DrawnText &Drawn() const { return m_drawn; }
    // `corner` is the top left one of the room.
    void Draw(QPainter &painter, const QPoint &corner) const;

private:
    struct LetterReach;
    struct Sheet;

    LetterReach ReachOfLetters() const;
    // `step` leads from the closest lines to easy ones.
    Sheet SheetAt(int pixels, int columns, int step = 0) const;
    std::vector<int> Lines(const Sheet &sheet) const;
    std::vector<int> LinesInProportion(const Sheet &sheet, double ease) const;
    bool Fits(const Sheet &sheet, const std::vector<int> &lines) const;
    bool Fits(int pixels, int columns) const;
    bool MayFit(int pixels, int columns, double ease) const;
    int Largest(int low, int high, int columns) const;
    void LayOut(int pixels);
    void PutInPlace(const Sheet &sheet, const std::vector<double> &heights);

    QStringList m_sentences;
    int m_underlined = -1; // the letter of a mnemonic, in the first sentence
    Font m_font;
    QSize m_room;
    int m_flags;
    int m_mostColumns;
    std::unique_ptr<LetterReach> m_reach; // in the font's own size
    DrawnText m_drawn;
    mutable std::vector<std::unique_ptr<QTextLayout>> m_measured; // while the size is looked for
    std::vector<std::unique_ptr<QTextLayout>> m_laid;
};

void DrawFitted(QPainter &painter, const QRect &room, int flags, const QString &text,
                const Font &font);

} // namespace platform
