// Items of the menu bar. An item under which others stand is a menu.
#pragma once

#include "platform/controls/control.h"
#include "platform/host/event_handler.h"

class QAction;
class QMenu;

namespace platform {

class MenuItem : public Control {
public:
    // On the bar. "&" stands before the letter that opens it.
    MenuItem(const ControlId &id, const QString &caption);
    // Under another item; the shortcut as "F1" or "Ctrl+S".
    MenuItem(const ControlId &id, MenuItem &parent, const QString &caption,
             const QString &shortcut = {});
    ~MenuItem() override;

    QString Caption() const override;
    void SetCaption(const QString &caption) override;
    // What stands in a disabled menu is dead, its shortcuts too.
    bool Enabled() const override;
    void SetEnabled(bool enabled) override;
    bool Visible() const override;
    void SetVisible(bool visible) override;
    bool Checked() const;
    void SetChecked(bool checked);

    EventHandler<void()> OnClick;

private:
    void Wire();
    QMenu *Menu();

    QAction *m_action;
    QMenu *m_menu = nullptr;
};

} // namespace platform
