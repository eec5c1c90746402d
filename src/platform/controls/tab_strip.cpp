#include "platform/controls/tab_strip.h"

#include "platform/base/fitted_text.h"
#include "platform/movies/drawn_picture.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <QTabBar>

#include <algorithm>

namespace platform {

// The toolkit's bar, for the keyboard and for screen readers; all tabs are equally wide.
class TabStripView : public QTabBar {
public:
    platform::Font Letters;
    Color Back = SystemButtonFace;
    Color Fore = SystemButtonText;
    QStringList Pictures;

protected:
    QSize tabSizeHint(int index) const override
    {
        // The whole width, without a pixel left over.
        const int left = width() * index / count();
        return {width() * (index + 1) / count() - left, height()};
    }
    QSize minimumTabSizeHint(int index) const override { return tabSizeHint(index); }

    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        for (int i = 0; i < count(); ++i)
            DrawTab(painter, i);
    }

private:
    void DrawTab(QPainter &painter, int index) const
    {
        const bool chosen = index == currentIndex();
        const QRectF tab = QRectF(tabRect(index)).adjusted(2, chosen ? 2 : 6, -2, 20);
        QPainterPath shape;
        shape.addRoundedRect(tab, 12, 12);
        painter.fillPath(shape, chosen ? ToQColor(Back) : ToQColor(Back).darker(112));
        painter.strokePath(shape, QPen(chosen && hasFocus() ? ToQColor(0x8000000D) : ToQColor(Ink),
                                       chosen ? 2.5 : 1.5));
        QRect room = tabRect(index).adjusted(8, 8, -8, -4);
        const QString picture = Pictures.value(index);
        if (!picture.isEmpty()) {
            const int side = std::min(room.height(), room.width() / 3);
            painter.drawPixmap(room.left(), room.center().y() - side / 2,
                               DrawnPicture(picture, QSize(side, side), devicePixelRatioF()));
            room.setLeft(room.left() + side + 6);
        }
        platform::Font letters = Letters;
        letters.Bold = chosen;
        painter.setPen(ToQColor(Fore));
        DrawFitted(painter, room, Qt::AlignCenter, tabText(index), letters);
    }
};

TabStrip::TabStrip(const ControlId &id, const Place &place, const QStringList &captions)
    : VisualControl(id, place, new TabStripView), m_view(static_cast<TabStripView *>(Widget()))
{
    TellsItsClicks();
    SetTabStop(true);
    m_view->setExpanding(false);
    m_view->setUsesScrollButtons(false);
    m_view->setDrawBase(false);
    for (const QString &caption : captions) {
        m_view->addTab(caption);
        m_view->Pictures << QString();
    }
    QObject::connect(m_view, &QTabBar::currentChanged, m_view, [this](int index) {
        Note("SelectedItem", QString::number(index + 1));
        Click();
    });
    // Told before the tab changes, so only of the chosen one nothing else will be told.
    QObject::connect(m_view, &QTabBar::tabBarClicked, m_view, [this](int index) {
        if (index >= 0 && index == m_view->currentIndex())
            Click();
    });
}

int TabStrip::TabCount() const
{
    return m_view->count();
}

int TabStrip::Position(int number) const
{
    if (number < 1 || number > m_view->count())
        throw RunTimeError(InvalidPropertyValue, Key());
    return number - 1;
}

QString TabStrip::TabCaption(int number) const
{
    return m_view->tabText(Position(number));
}

int TabStrip::SelectedItem() const
{
    return m_view->currentIndex() + 1;
}

void TabStrip::SetSelectedItem(int number)
{
    m_view->setCurrentIndex(Position(number));
}

void TabStrip::SetTabPicture(int number, const QString &name)
{
    m_view->Pictures[Position(number)] = name;
    m_view->update();
}

void TabStrip::Refresh()
{
    m_view->Letters = Font();
    m_view->Back = BackColor();
    m_view->Fore = ForeColor();
    m_view->update();
}

} // namespace platform
