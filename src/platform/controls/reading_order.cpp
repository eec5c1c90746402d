#include "platform/controls/reading_order.h"

#include <QWidget>

#include <algorithm>
#include <vector>

namespace platform {

namespace {

using Widgets = std::vector<QWidget *>;

// A row goes down to the middle of its highest widget.
void SortByRows(Widgets &widgets)
{
    std::sort(widgets.begin(), widgets.end(),
              [](const QWidget *one, const QWidget *other) { return one->y() < other->y(); });
    for (auto row = widgets.begin(); row != widgets.end();) {
        const int middle = (*row)->geometry().center().y();
        const auto next = std::find_if(
            row, widgets.end(), [middle](const QWidget *widget) { return widget->y() > middle; });
        std::stable_sort(row, next, [](const QWidget *one, const QWidget *other) {
            return one->x() < other->x();
        });
        row = next == row ? row + 1 : next; // one without height
    }
}

// The toolkit orders only what has a tab stop.
void Collect(const QWidget &container, Widgets &stops)
{
    Widgets here;
    for (QObject *child : container.children())
        if (child->isWidgetType() && !static_cast<QWidget *>(child)->isWindow())
            here.push_back(static_cast<QWidget *>(child));
    SortByRows(here);
    for (QWidget *widget : here) {
        if ((widget->focusPolicy() & Qt::TabFocus) != 0)
            stops.push_back(widget);
        Collect(*widget, stops);
    }
}

} // namespace

void TabInReadingOrder(const QWidget &client)
{
    Widgets stops;
    Collect(client, stops);
    for (size_t i = 1; i < stops.size(); ++i)
        QWidget::setTabOrder(stops[i - 1], stops[i]);
}

} // namespace platform
