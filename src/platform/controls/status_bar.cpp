#include "platform/controls/status_bar.h"

#include "platform/controls/form_window.h"

#include <QFont>
#include <QLabel>
#include <QPainter>

#include <algorithm>

namespace platform {

namespace {

class StatusView : public QWidget {
protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        painter.fillRect(rect(), ToQColor(SystemButtonFace));
        painter.fillRect(0, 0, width(), 2, QColor(0x3A, 0x2B, 0x28));
    }
};

} // namespace

StatusBar::StatusBar(const ControlId &id, const Place &place, int panels)
    : VisualControl(id, place, new StatusView)
{
    for (int number = 1; number <= panels; ++number) {
        auto *label = new QLabel(Widget());
        label->setTextFormat(Qt::PlainText);
        label->setAlignment(Qt::AlignCenter);
        label->setAccessibleDescription(QStringLiteral("%1.Panels(%2)").arg(Key()).arg(number));
        m_panels.push_back(label);
    }
    StatusBar::PutInPlace();
}

QLabel *StatusBar::Label(int number) const
{
    if (number < 1 || number > static_cast<int>(m_panels.size()))
        throw RunTimeError(InvalidPropertyValue, Key());
    return m_panels[static_cast<size_t>(number - 1)];
}

QString StatusBar::Panel(int number) const
{
    return Label(number)->text();
}

void StatusBar::SetPanel(int number, const QString &text)
{
    Label(number)->setText(text);
    Note(number == 1 ? "Panels(1)" : number == 2 ? "Panels(2)" : "Panels(3)", text);
}

void StatusBar::SetLeft(double)
{
    throw RunTimeError(SetNotSupported, Key());
}
void StatusBar::SetTop(double)
{
    throw RunTimeError(SetNotSupported, Key());
}
void StatusBar::SetWidth(double)
{
    throw RunTimeError(SetNotSupported, Key());
}

void StatusBar::PutInPlace()
{
    m_place.Left = 0;
    m_place.Width = Parent().ScaleWidth();
    m_place.Top = Parent().ScaleHeight() - m_place.Height;
    VisualControl::PutInPlace();
    const int count = static_cast<int>(m_panels.size());
    const int width = Widget()->width();
    QFont font(QStringLiteral("arial"));
    font.setPixelSize(std::max(12, Widget()->height() * 11 / 20));
    font.setBold(true);
    for (int i = 0; i < count; ++i) {
        QLabel *label = m_panels[static_cast<size_t>(i)];
        label->setFont(font);
        label->setGeometry(width * i / count, 2, width * (i + 1) / count - width * i / count,
                           Widget()->height() - 2);
    }
}

} // namespace platform
