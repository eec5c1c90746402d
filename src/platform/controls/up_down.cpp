#include "platform/controls/up_down.h"

#include <QRegularExpression>
#include <QToolButton>

#include <algorithm>

namespace platform {

double LeadingNumber(const QString &text)
{
    static const QRegularExpression form(
        QStringLiteral("^[+-]?(\\d+(\\.\\d*)?|\\.\\d+)([eEdD][+-]?\\d+)?"));
    QString bare = text;
    bare.remove(QRegularExpression(QStringLiteral("[ \\t\\n]")));
    const QRegularExpressionMatch match = form.match(bare);
    return match.captured()
        .replace(QLatin1Char('d'), QLatin1Char('e'), Qt::CaseInsensitive)
        .toDouble();
}

UpDown::UpDown(const ControlId &id, const Place &place, TextBox &buddy, int min, int max,
               int increment)
    : VisualControl(id, place, new QWidget), m_buddy(buddy), m_min(min), m_max(max),
      m_increment(increment), m_up(new QToolButton(Widget())), m_down(new QToolButton(Widget()))
{
    TellsItsClicks();
    const auto wire = [this](QToolButton *button, Qt::ArrowType arrow, const char *name,
                             int direction) {
        button->setArrowType(arrow);
        button->setAutoRepeat(true);
        button->setFocusPolicy(Qt::NoFocus);
        button->setAccessibleDescription(Key() + QLatin1Char('.') + QLatin1String(name));
        QObject::connect(button, &QToolButton::clicked, button,
                         [this, direction] { Step(direction); });
    };
    wire(m_up, Qt::UpArrow, "Up", 1);
    wire(m_down, Qt::DownArrow, "Down", -1);
    UpDown::PutInPlace();
}

void UpDown::Step(int direction)
{
    if (Parent().Unloaded() || !Enabled())
        return;
    const double known = LeadingNumber(m_buddy.Text());
    const double value = std::clamp<double>(RoundToLong(std::clamp<double>(known, -1e9, 1e9)) +
                                                static_cast<double>(direction) * m_increment,
                                            m_min, m_max);
    if (value == known)
        return;
    m_buddy.SetText(QString::number(static_cast<int>(value)));
    OnChange();
}

void UpDown::Speak(const QString &name)
{
    m_up->setAccessibleName(name.section(QStringLiteral(" / "), 0, 0));
    m_down->setAccessibleName(name.section(QStringLiteral(" / "), 1));
}

void UpDown::PutInPlace()
{
    VisualControl::PutInPlace();
    const int width = Widget()->width();
    const int half = Widget()->height() / 2;
    m_up->setGeometry(0, 0, width, half);
    m_down->setGeometry(0, half, width, Widget()->height() - half);
}

} // namespace platform
