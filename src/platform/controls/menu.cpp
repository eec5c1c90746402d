#include "platform/controls/menu.h"

#include "platform/controls/form.h"

#include <QAction>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>

namespace platform {

MenuItem::MenuItem(const ControlId &id, const QString &caption)
    : Control(id), m_action(id.Parent.MenuBar()->addAction(caption))
{
    Wire();
}

MenuItem::MenuItem(const ControlId &id, MenuItem &parent, const QString &caption,
                   const QString &shortcut)
    : Control(id), m_action(parent.Menu()->addAction(caption))
{
    if (!shortcut.isEmpty())
        m_action->setShortcut(QKeySequence(shortcut));
    Wire();
}

MenuItem::~MenuItem()
{
    delete m_menu;
    delete m_action;
}

void MenuItem::Wire()
{
    m_action->setObjectName(Key());
    QObject::connect(m_action, &QAction::triggered, m_action, [this] {
        // The tick is the program's to set.
        if (m_action->isCheckable())
            m_action->setChecked(!m_action->isChecked());
        if (!Parent().Unloaded())
            OnClick();
    });
}

QMenu *MenuItem::Menu()
{
    if (m_menu == nullptr) {
        m_menu = new QMenu(Parent().Window());
        m_menu->setObjectName(Key());
        m_action->setMenu(m_menu);
    }
    return m_menu;
}

QString MenuItem::Caption() const
{
    return m_action->text();
}

void MenuItem::SetCaption(const QString &caption)
{
    m_action->setText(caption);
}

bool MenuItem::Enabled() const
{
    return m_action->isEnabled();
}

void MenuItem::SetEnabled(bool enabled)
{
    m_action->setEnabled(enabled);
    Note("Enabled", enabled);
}

bool MenuItem::Visible() const
{
    return m_action->isVisible();
}

void MenuItem::SetVisible(bool visible)
{
    m_action->setVisible(visible);
    Note("Visible", visible);
}

bool MenuItem::Checked() const
{
    return m_action->isChecked();
}

void MenuItem::SetChecked(bool checked)
{
    m_action->setCheckable(true);
    m_action->setChecked(checked);
    Note("Checked", checked);
}

} // namespace platform
