#include "platform/text_box.h"

#include "platform/fitted_text.h"

#include <QEvent>
#include <QFont>
#include <QLineEdit>
#include <QPalette>
#include <QPlainTextEdit>
#include <QTextDocument>

#include <algorithm>

namespace platform {

namespace {

constexpr int PagePadding = 4; // px

} // namespace

TextBox::TextBox(const ControlId &id, const Place &place, Kind kind)
    : VisualControl(id, place,
                    kind == Kind::OneLine ? static_cast<QWidget *>(new QLineEdit)
                                          : static_cast<QWidget *>(new QPlainTextEdit))
{
    const auto changed = [this] { Changed(); };
    if (kind == Kind::OneLine) {
        m_line = static_cast<QLineEdit *>(Widget());
        m_line->setFocusPolicy(Qt::StrongFocus);
        QObject::connect(m_line, &QLineEdit::textEdited, m_line, [this] { Edited(); });
        QObject::connect(m_line, &QLineEdit::textChanged, m_line, changed);
    } else {
        m_page = static_cast<QPlainTextEdit *>(Widget());
        m_page->setReadOnly(true);
        m_page->setTextInteractionFlags(Qt::NoTextInteraction);
        m_page->viewport()->setMouseTracking(true);
        QObject::connect(m_page, &QPlainTextEdit::textChanged, m_page, changed);
    }
}

// A person's change, before it is told: what came new loses the letters that are refused.
void TextBox::Edited()
{
    if (!OnKeyPress)
        return;
    const QString text = m_line->text();
    qsizetype same = 0; // at the end
    while (same < std::min(text.size(), m_known.size()) &&
           text.at(text.size() - 1 - same) == m_known.at(m_known.size() - 1 - same) &&
           text.size() - same > m_line->cursorPosition())
        ++same;
    qsizetype start = 0;
    while (start < std::min(text.size(), m_known.size()) - same &&
           text.at(start) == m_known.at(start))
        ++start;
    QString kept = text.left(start);
    for (const QChar letter : text.mid(start, text.size() - same - start))
        if (OnKeyPress(letter))
            kept += letter;
    if (kept.size() + same == text.size())
        return;
    m_line->setText(kept + text.right(same));
    m_line->setCursorPosition(static_cast<int>(kept.size()));
}

void TextBox::Changed()
{
    // A text that lost its refused letters comes twice.
    if (Text() == m_known)
        return;
    m_known = Text();
    if (!Parent().Unloaded() && OnChange)
        OnChange();
}

bool TextBox::Event(QEvent *event)
{
    const bool ends = VisualControl::Event(event);
    // Who listens to keys does not keep them from being typed.
    return ends && event->type() != QEvent::KeyPress && event->type() != QEvent::KeyRelease;
}

QString TextBox::Text() const
{
    return m_line != nullptr ? m_line->text() : m_text;
}

void TextBox::SetText(const QString &text)
{
    if (text == Text())
        return;
    if (m_line != nullptr)
        m_line->setText(text);
    else
        ShowPage(text);
    Note("Text", text);
    FitFont();
}

void TextBox::ShowPage(const QString &text)
{
    m_text = text;
    // A last line break ends a line and opens no empty one.
    m_page->setPlainText(text.endsWith(QStringLiteral("\r\n")) ? text.chopped(2) : text);
}

void TextBox::Refresh()
{
    QPalette palette = Widget()->palette();
    palette.setColor(QPalette::Base, ToQColor(BackColor()));
    palette.setColor(QPalette::Text, ToQColor(ForeColor()));
    Widget()->setPalette(palette);
    if (m_page != nullptr)
        // A page with the round corners of a framed label.
        m_page->setStyleSheet(
            QStringLiteral("QPlainTextEdit { border: 2px solid #3a2b28; border-radius: 14px; "
                           "padding: %1px; background: %2; color: %3 }")
                .arg(PagePadding)
                .arg(ToQColor(BackColor()).name(), ToQColor(ForeColor()).name()));
    FitFont();
}

void TextBox::FitFont()
{
    double points = Font().Size;
    if (m_page != nullptr) {
        const int margin = static_cast<int>(m_page->document()->documentMargin()) + PagePadding + 2;
        points = FittingPoints(m_page->toPlainText(), Font(),
                               m_page->size() - QSize(2 * margin, 2 * margin));
    }
    Widget()->setFont(ToQFont(Font(), points));
}

} // namespace platform
