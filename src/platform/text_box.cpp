#include "platform/text_box.h"

#include "platform/fitted_text.h"

#include <QFont>
#include <QLineEdit>
#include <QPalette>
#include <QPlainTextEdit>
#include <QTextDocument>

namespace platform {

namespace {

constexpr int PagePadding = 4; // px

} // namespace

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
