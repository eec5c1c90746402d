#include "platform/controls/scroll_bar.h"

#include <QPainter>
#include <QSlider>

#include <algorithm>

namespace platform {

namespace {

class ScrollView : public QSlider {
public:
    ScrollView() : QSlider(Qt::Horizontal) {}
    Color Back = SystemButtonFace;

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.fillRect(rect(), ToQColor(Back));
        const double middle = height() / 2.0;
        const double radius = std::min(height() / 2.0 - 3, 14.0);
        // The knob stays whole at both ends.
        const double margin = radius + 3;
        const double part =
            static_cast<double>(value() - minimum()) / std::max(1, maximum() - minimum());
        const double at = margin + part * (width() - 2 * margin);
        painter.setOpacity(isEnabled() ? 1.0 : 0.45);
        const auto track = [&](double from, double to, const QColor &color) {
            painter.setPen(QPen(color, 8, Qt::SolidLine, Qt::RoundCap));
            painter.drawLine(QPointF(from, middle), QPointF(to, middle));
        };
        track(margin, width() - margin, ToQColor(0x80000010));
        track(margin, at, ToQColor(0x8000000D));
        painter.setPen(QPen(hasFocus() ? ToQColor(0x8000000D) : ToQColor(Ink), 3));
        painter.setBrush(ToQColor(SystemWindow));
        painter.drawEllipse(QPointF(at, middle), radius, radius);
    }
};

ScrollView &View(const HScrollBar &bar)
{
    return *static_cast<ScrollView *>(bar.Widget());
}

} // namespace

HScrollBar::HScrollBar(const ControlId &id, const Place &place, int min, int max)
    : VisualControl(id, place, new ScrollView)
{
    TellsItsClicks();
    SetTabStop(true);
    View(*this).setRange(min, max);
    SetChanges(1, 1);
    QObject::connect(&View(*this), &QSlider::valueChanged, Widget(), [this] {
        Note("Value", QString::number(Value()));
        if (!Parent().Unloaded())
            OnChange();
    });
}

int HScrollBar::Min() const
{
    return View(*this).minimum();
}
int HScrollBar::Max() const
{
    return View(*this).maximum();
}
int HScrollBar::Value() const
{
    return View(*this).value();
}

void HScrollBar::SetValue(int value)
{
    if (value < Min() || value > Max())
        throw RunTimeError(InvalidPropertyValue, Key());
    View(*this).setValue(value);
}

void HScrollBar::SetChanges(int small, int large)
{
    View(*this).setSingleStep(small);
    View(*this).setPageStep(large);
}

void HScrollBar::Refresh()
{
    View(*this).Back = BackColor();
    Widget()->update();
}

} // namespace platform
