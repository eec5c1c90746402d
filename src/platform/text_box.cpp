#include "platform/text_box.h"

#include "platform/fitted_text.h"

#include <QFont>
#include <QLineEdit>
#include <QPalette>
#include <QPlainTextEdit>
#include <QTextDocument>

namespace platform {

TextBox::TextBox(const ControlId &id, const Place &place, Kind kind)
    : VisualControl(id, place,
                    kind == Kind::OneLine ? static_cast<QWidget *>(new QLineEdit)
                                          : static_cast<QWidget *>(new QPlainTextEdit))
{
    const auto changed = [this] {
        if (!Parent().Unloaded() && OnChange)
            OnChange();
    };
    if (kind == Kind::OneLine) {
        m_line = static_cast<QLineEdit *>(Widget());
        m_line->setFocusPolicy(Qt::StrongFocus);
        QObject::connect(m_line, &QLineEdit::textChanged, m_line, changed);
    } else {
        m_page = static_cast<QPlainTextEdit *>(Widget());
        m_page->setReadOnly(true);
        m_page->setTextInteractionFlags(Qt::NoTextInteraction);
        m_page->viewport()->setMouseTracking(true);
        QObject::connect(m_page, &QPlainTextEdit::textChanged, m_page, changed);
    }
}

QString TextBox::Text() const
{
    return m_line != nullptr ? m_line->text() : m_page->toPlainText();
}

void TextBox::SetText(const QString &text)
{
    if (text == Text())
        return;
    if (m_line != nullptr)
        m_line->setText(text);
    else
        m_page->setPlainText(text);
    Note("Text", text);
    TextBox::Refresh();
}

void TextBox::Refresh()
{
    QPalette palette = Widget()->palette();
    palette.setColor(QPalette::Base, ToQColor(BackColor()));
    palette.setColor(QPalette::Text, ToQColor(ForeColor()));
    Widget()->setPalette(palette);
    double points = Font().Size;
    if (m_page != nullptr) {
        const int margin = static_cast<int>(m_page->document()->documentMargin()) + 2;
        points = FittingPoints(Text(), Font(), m_page->size() - QSize(2 * margin, 2 * margin));
    }
    Widget()->setFont(ToQFont(Font(), points));
}

} // namespace platform
