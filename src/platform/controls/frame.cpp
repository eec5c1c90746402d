#include "platform/controls/frame.h"

#include "platform/base/fitted_text.h"
#include "platform/controls/form_window.h"

#include <QFontMetrics>
#include <QGroupBox>
#include <QPainter>

namespace platform {

namespace {

// A group box, so that a screen reader names the group of what lies in it.
class FrameView : public QGroupBox {
public:
    platform::Font Letters;
    Color Back = SystemButtonFace;
    Color Fore = SystemButtonText;

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        painter.fillRect(rect(), ToQColor(Back));
        painter.setRenderHint(QPainter::Antialiasing);
        const QFont font = ToQFont(Letters, TitleSize());
        const QFontMetrics metrics(font);
        const int head = title().isEmpty() ? 0 : metrics.height();
        painter.setPen(QPen(ToQColor(Ink), 1.5));
        painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1 + head / 2.0, -1, -1), 9, 9);
        if (head == 0)
            return;
        const QRect heading(14, 0, metrics.horizontalAdvance(title()) + 12, head);
        painter.fillRect(heading, ToQColor(Back));
        painter.setFont(font);
        painter.setPen(isEnabled() ? ToQColor(Fore) : ToQColor(0x80000011));
        painter.drawText(heading, Qt::AlignCenter, title());
    }

private:
    // Points: smaller on a narrow screen, so that the whole title stands in the border.
    double TitleSize() const
    {
        const int room = width() - 44; // the corners stay free
        const int wide = QFontMetrics(ToQFont(Letters, Letters.Size)).horizontalAdvance(title());
        return wide > room && room > 0 ? Letters.Size * room / wide : Letters.Size;
    }
};

FrameView &View(const Frame &frame)
{
    return *static_cast<FrameView *>(frame.Widget());
}

} // namespace

Frame::Frame(const ControlId &id, const Place &place, const QString &caption)
    : VisualControl(id, place, new FrameView)
{
    View(*this).setTitle(caption);
}

QString Frame::Caption() const
{
    return View(*this).title();
}

void Frame::SetCaption(const QString &caption)
{
    View(*this).setTitle(caption);
    Note("Caption", caption);
}

void Frame::Refresh()
{
    View(*this).Letters = Font();
    View(*this).Back = BackColor();
    View(*this).Fore = ForeColor();
    Widget()->update();
}

} // namespace platform
