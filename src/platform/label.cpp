#include "platform/label.h"

#include "platform/fitted_text.h"
#include "platform/form_window.h"

#include <QFont>
#include <QFontMetrics>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace platform {

// A QLabel, so that a screen reader finds a label and its text.
class LabelView : public QLabel {
public:
    explicit LabelView(Alignment alignment) : m_alignment(alignment)
    {
        setTextFormat(Qt::PlainText);
    }

    void Show(const Font &font, Color back, Color fore)
    {
        m_font = font;
        m_back = back;
        m_fore = fore;
        update();
    }
    bool Framed = false;
    bool Transparent = false;

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        // A low label needs all of its height.
        int margin = Transparent ? 0 : std::clamp((height() - 40) / 4, 0, 6);
        if (Framed) {
            const double line = std::clamp(height() / 100.0, 2.0, 5.0);
            const double radius = std::min({width() / 8.0, height() / 8.0, 28.0});
            const double edge = line / 2;
            QPainterPath page;
            page.addRoundedRect(QRectF(rect()).adjusted(edge, edge, -edge, -edge), radius, radius);
            painter.fillPath(page, ToQColor(m_back));
            painter.strokePath(page, QPen(ToQColor(Ink), line));
            margin = static_cast<int>(std::lround(line + std::max(6.0, radius * 0.6)));
        } else if (!Transparent) {
            painter.fillRect(rect(), ToQColor(m_back));
        }
        painter.setPen(isEnabled() ? ToQColor(m_fore) : ToQColor(0x80000011));
        const QRect room = rect().adjusted(margin, margin, -margin, -margin);
        DrawFitted(painter, room, Flags(), text(), m_font);
    }

private:
    static constexpr Color Ink = Rgb(0x3A, 0x2B, 0x28);

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
};

Label::Label(const ControlId &id, const Place &place, const QString &caption, Alignment alignment)
    : VisualControl(id, place, new LabelView(alignment)), m_view(static_cast<LabelView *>(Widget()))
{
    m_view->setText(caption);
}

QString Label::Caption() const
{
    return m_view->text();
}

void Label::SetCaption(const QString &caption)
{
    m_view->setText(caption);
    Note("Caption", caption);
    Label::Refresh();
}

void Label::SetFramed(bool framed)
{
    m_view->Framed = framed;
    m_view->update();
}

void Label::SetTransparent(bool transparent)
{
    m_view->Transparent = transparent;
    m_view->update();
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
