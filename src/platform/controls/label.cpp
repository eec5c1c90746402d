#include "platform/controls/label.h"

#include "platform/base/page.h"
#include "platform/controls/form_window.h"
#include "platform/controls/shared_text.h"

#include <QFont>
#include <QFontMetrics>
#include <QLabel>
#include <QPainter>

#include <algorithm>
#include <memory>

namespace platform {

// A QLabel, so that a screen reader finds a label and its text.
class LabelView : public QLabel {
public:
    explicit LabelView(Alignment alignment)
        : m_alignment(alignment), m_text(*this, [this](double most) {
              Font letters = m_font;
              letters.Size = std::min(letters.Size, most);
              return std::make_unique<FittedText>(text(), letters, Room().size(), Flags());
          })
    {
        setTextFormat(Qt::PlainText);
        DrawnAs(*this, QAccessible::StaticText);
    }

    void Show(const Font &font, Color back, Color fore)
    {
        const bool letters = font != m_font;
        m_font = font;
        m_back = back;
        m_fore = fore;
        letters ? m_text.Changed() : update();
    }
    void Write(const QString &text)
    {
        setText(text);
        m_text.Changed();
    }
    void SetFramed(bool framed)
    {
        m_framed = framed;
        m_text.Changed();
    }
    void SetTransparent(bool transparent)
    {
        m_transparent = transparent;
        m_text.Changed();
    }
    void ShareSize(const LabelView &other) { m_text.ShareSize(other.m_text); }
    const FittedText &Laid() const { return m_text.Laid(); }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        if (m_framed)
            DrawPage(painter, rect(), m_back);
        else if (!m_transparent)
            painter.fillRect(rect(), ToQColor(m_back));
        painter.setPen(isEnabled() ? ToQColor(m_fore) : ToQColor(0x80000011));
        Laid().Draw(painter, Room().topLeft());
    }
    void resizeEvent(QResizeEvent *event) override
    {
        QLabel::resizeEvent(event);
        m_text.Changed();
    }

private:
    QRect Room() const
    {
        // A low label needs all of its height.
        const int margin = m_framed        ? PageMargin(size())
                           : m_transparent ? 0
                                           : std::clamp((height() - 40) / 4, 0, 6);
        return rect().adjusted(margin, margin, -margin, -margin);
    }

    int Flags() const
    {
        switch (m_alignment) {
        case Alignment::Right:
            return Qt::AlignRight | Qt::AlignTop;
        case Alignment::Center:
            return Qt::AlignHCenter | Qt::AlignTop;
        case Alignment::Left:
            break;
        }
        return Qt::AlignLeft | Qt::AlignTop;
    }

    Alignment m_alignment;
    Font m_font;
    Color m_back = SystemButtonFace;
    Color m_fore = SystemButtonText;
    bool m_framed = false;
    bool m_transparent = false;
    SharedText m_text;
};

Label::Label(const ControlId &id, const Place &place, const QString &caption, Alignment alignment)
    : VisualControl(id, place, new LabelView(alignment)), m_view(static_cast<LabelView *>(Widget()))
{
    m_view->Write(caption);
}

QString Label::Caption() const
{
    return m_view->text();
}

void Label::SetCaption(const QString &caption)
{
    m_view->Write(caption);
    Note("Caption", caption);
    Label::Refresh();
}

void Label::SetFramed(bool framed)
{
    m_view->SetFramed(framed);
}

void Label::SetTransparent(bool transparent)
{
    m_view->SetTransparent(transparent);
}

void Label::ShareSize(const Label &other)
{
    m_view->ShareSize(*other.m_view);
}

DrawnText Label::Drawn() const
{
    return m_view->Laid().Drawn();
}

void Label::SetAutoSize(bool autoSize)
{
    m_autoSize = autoSize;
    Label::Refresh();
}

void Label::Refresh()
{
    m_view->Show(Font(), BackColor(), ForeColor());
    if (m_autoSize) {
        const QFontMetrics metrics(ToQFont(Font(), Font().Size));
        m_place.Width = metrics.horizontalAdvance(Caption()) * TwipsPerPixel;
        m_place.Height = metrics.height() * TwipsPerPixel;
        PutInPlace();
    }
}

} // namespace platform
