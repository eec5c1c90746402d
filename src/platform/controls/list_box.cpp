#include "platform/controls/list_box.h"

#include <QFont>
#include <QListWidget>
#include <QMouseEvent>
#include <QPalette>

namespace platform {

class ListBoxView : public QListWidget {
public:
    std::function<void()> ChosenAgain;

protected:
    void mousePressEvent(QMouseEvent *event) override
    {
        const QListWidgetItem *item = itemAt(event->position().toPoint());
        const bool again =
            event->button() == Qt::LeftButton && item != nullptr && item->isSelected();
        QListWidget::mousePressEvent(event);
        if (again)
            ChosenAgain();
    }
};

ListBox::ListBox(const ControlId &id, const Place &place)
    : VisualControl(id, place, new ListBoxView), m_view(static_cast<ListBoxView *>(Widget()))
{
    TellsItsClicks();
    SetTabStop(true);
    m_view->setSelectionMode(QAbstractItemView::SingleSelection);
    // Not the current item, which the keyboard's arrival alone moves.
    QObject::connect(m_view, &QListWidget::itemSelectionChanged, m_view, [this] {
        if (!m_byCode && ListIndex() >= 0)
            Click();
    });
    m_view->ChosenAgain = [this] { Click(); };
    ListBox::Refresh();
}

void ListBox::Clear()
{
    m_byCode = true;
    m_view->clear();
    m_byCode = false;
}

void ListBox::AddItem(const QString &text)
{
    m_view->addItem(text);
}

int ListBox::ListCount() const
{
    return m_view->count();
}

QString ListBox::List(int index) const
{
    const QListWidgetItem *item = m_view->item(index);
    return item == nullptr ? QString() : item->text();
}

int ListBox::ListIndex() const
{
    const QList<QListWidgetItem *> chosen = m_view->selectedItems();
    return chosen.isEmpty() ? -1 : m_view->row(chosen.first());
}

void ListBox::SetListIndex(int index)
{
    if (index < -1 || index >= m_view->count())
        throw RunTimeError(InvalidPropertyValue, Key());
    if (index == ListIndex())
        return;
    m_byCode = true;
    m_view->clearSelection();
    m_view->setCurrentRow(index);
    m_byCode = false;
    Note("ListIndex", QString::number(index));
    if (index >= 0)
        Click();
}

QString ListBox::Text() const
{
    return List(ListIndex());
}

void ListBox::Refresh()
{
    m_view->setFont(ToQFont(Font(), Font().Size));
}

} // namespace platform
