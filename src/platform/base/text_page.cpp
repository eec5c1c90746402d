#include "platform/base/text_page.h"

#include "platform/base/page.h"

#include <QPainter>

namespace platform {

namespace {

constexpr int MostColumns = 3;

} // namespace

TextPage::TextPage()
{
    setReadOnly(true);
    setTextInteractionFlags(Qt::NoTextInteraction);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    viewport()->setMouseTracking(true);
    // The corners show what lies behind.
    viewport()->setAutoFillBackground(false);
}

void TextPage::Write(const QString &text)
{
    setPlainText(text);
    Changed();
}

void TextPage::Show(const Font &font, Color back, Color fore)
{
    m_font = font;
    m_back = back;
    m_fore = fore;
    Changed();
}

void TextPage::Changed()
{
    m_laid.reset();
    viewport()->update();
}

const FittedText &TextPage::Laid() const
{
    if (m_laid == nullptr) {
        const int margin = PageMargin(size());
        m_laid = std::make_unique<FittedText>(toPlainText(), m_font,
                                              size() - QSize(2 * margin, 2 * margin), Qt::AlignLeft,
                                              MostColumns);
    }
    return *m_laid;
}

void TextPage::paintEvent(QPaintEvent *)
{
    QPainter painter(viewport());
    DrawPage(painter, rect(), m_back);
    const int margin = PageMargin(size());
    painter.setPen(ToQColor(m_fore));
    Laid().Draw(painter, QPoint(margin, margin));
}

void TextPage::resizeEvent(QResizeEvent *event)
{
    QPlainTextEdit::resizeEvent(event);
    Changed();
}

void TextPage::scrollContentsBy(int, int) {}

} // namespace platform
