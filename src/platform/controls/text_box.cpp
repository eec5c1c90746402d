#include "platform/controls/text_box.h"

#include "platform/base/text_page.h"

#include <QEvent>
#include <QFont>
#include <QLineEdit>
#include <QPalette>
#include <QScopedValueRollback>

#include <algorithm>
#include <utility>

namespace platform {

TextBox::TextBox(const ControlId &id, const Place &place, Kind kind)
    : VisualControl(id, place,
                    kind == Kind::OneLine ? static_cast<QWidget *>(new QLineEdit)
                                          : static_cast<QWidget *>(new TextPage))
{
    const auto changed = [this] { Changed(); };
    if (kind == Kind::OneLine) {
        m_line = static_cast<QLineEdit *>(Widget());
        m_line->setFocusPolicy(Qt::StrongFocus);
        QObject::connect(m_line, &QLineEdit::textEdited, m_line, [this] { Edited(); });
        QObject::connect(m_line, &QLineEdit::textChanged, m_line, changed);
        const auto remember = [this] { RememberSelection(); };
        QObject::connect(m_line, &QLineEdit::selectionChanged, m_line, remember);
        QObject::connect(m_line, &QLineEdit::cursorPositionChanged, m_line, remember);
    } else {
        m_page = static_cast<TextPage *>(Widget());
        QObject::connect(m_page, &TextPage::textChanged, m_page, changed);
    }
}

// The line tells of text first and of its selection after it: at a change this is still the former.
void TextBox::RememberSelection()
{
    m_cursor = m_line->cursorPosition();
    const bool selected = m_line->hasSelectedText();
    m_selectionStart = selected ? m_line->selectionStart() : m_cursor;
    m_selectionEnd = selected ? m_line->selectionEnd() : m_cursor;
}

// A person's change, before it is told: what was selected gave way to what came.
void TextBox::Edited()
{
    m_edited = true;
    Sift(m_selectionStart, m_selectionEnd);
}

// Whoever writes from outside gives the whole text: what came is what differs.
void TextBox::WrittenFromOutside()
{
    if (!m_line->isEnabled()) {
        const QScopedValueRollback byCode(m_byCode, true);
        m_line->setText(m_known);
        return;
    }
    const QString text = m_line->text();
    const qsizetype shorter = std::min(text.size(), m_known.size());
    qsizetype start = 0;
    while (start < shorter && text.at(start) == m_known.at(start))
        ++start;
    qsizetype end = 0; // counted from behind
    while (end < shorter - start &&
           text.at(text.size() - 1 - end) == m_known.at(m_known.size() - 1 - end))
        ++end;
    Sift(start, m_known.size() - end);
}

// Takes the refused letters out of what came between two places of the known text.
void TextBox::Sift(qsizetype start, qsizetype end)
{
    const QString text = m_line->text();
    const qsizetype behind = m_known.size() - end;
    const QString came = text.mid(start, text.size() - behind - start);
    if (!OnKeyPress || came.isEmpty() || text.size() < start + behind)
        return;
    QString kept;
    for (const QChar letter : came)
        if (OnKeyPress(letter))
            kept += letter;
    if (kept == came)
        return;
    const QScopedValueRollback byCode(m_byCode, true);
    if (kept.isEmpty()) {
        // Every one is refused, so it is as if none had come: what was selected still is.
        const int cursor = m_cursor;
        const int from = m_selectionStart;
        const int to = m_selectionEnd;
        m_line->setText(m_known);
        m_line->setCursorPosition(cursor);
        if (from != to && cursor == from)
            m_line->setSelection(to, from - to);
        else if (from != to)
            m_line->setSelection(from, to - from);
        return;
    }
    m_line->setText(text.left(start) + kept + text.right(behind));
    m_line->setCursorPosition(static_cast<int>(start + kept.size()));
}

void TextBox::Changed()
{
    if (!m_byCode && !std::exchange(m_edited, false) && m_line != nullptr)
        WrittenFromOutside();
    // A text that lost its refused letters comes twice.
    if (Text() == m_known)
        return;
    m_known = Text();
    if (!Parent().Unloaded())
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
    const QScopedValueRollback byCode(m_byCode, true);
    if (m_line != nullptr)
        m_line->setText(text);
    else
        ShowPage(text);
    Note("Text", text);
}

void TextBox::ShowPage(const QString &text)
{
    m_text = text;
    // A last line break ends a line and opens no empty one.
    m_page->Write(text.endsWith(QStringLiteral("\r\n")) ? text.chopped(2) : text);
}

DrawnText TextBox::Drawn() const
{
    return m_page != nullptr ? m_page->Laid().Drawn() : DrawnText{.Points = Font().Size};
}

void TextBox::Refresh()
{
    QPalette palette = Widget()->palette();
    palette.setColor(QPalette::Base, ToQColor(BackColor()));
    palette.setColor(QPalette::Text, ToQColor(ForeColor()));
    Widget()->setPalette(palette);
    Widget()->setFont(ToQFont(Font(), Font().Size));
    if (m_page != nullptr)
        m_page->Show(Font(), BackColor(), ForeColor());
}

} // namespace platform
