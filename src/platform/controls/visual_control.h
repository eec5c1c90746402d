// What all controls share that a person sees: a place kept exactly in twips, colours, font,
// pointer, the events of mouse and keyboard.
#pragma once

#include "platform/base/colors.h"
#include "platform/base/font.h"
#include "platform/controls/control.h"
#include "platform/controls/form.h"
#include "platform/controls/spoken_control.h"
#include "platform/host/event_handler.h"

#include <QObject>
#include <QPointer>

#include <memory>

class QWidget;
class QEvent;

namespace platform {

class EventTap;

class VisualControl : public Control, public Pressable {
public:
    ~VisualControl() override;

    double Left() const override { return m_place.Left; }
    double Top() const override { return m_place.Top; }
    double Width() const override { return m_place.Width; }
    double Height() const override { return m_place.Height; }
    void SetLeft(double twips) override;
    void SetTop(double twips) override;
    void SetWidth(double twips) override;
    void SetHeight(double twips) override;

    bool Enabled() const override { return m_enabled; }
    void SetEnabled(bool enabled) override;
    bool Visible() const override { return m_visible; }
    void SetVisible(bool visible) override;
    QString ToolTipText() const override;
    void SetToolTipText(const QString &text) override;

    platform::Color BackColor() const { return m_backColor; }
    void SetBackColor(platform::Color color);
    platform::Color ForeColor() const { return m_foreColor; }
    void SetForeColor(platform::Color color);

    const platform::Font &Font() const { return m_font; }
    void SetFontName(const QString &family);
    void SetFontSize(double points);
    void SetFontBold(bool bold);
    void SetFontItalic(bool italic);
    void SetFontUnderline(bool underline);

    // Custom shows the program's own pointer, a hand.
    platform::MousePointer MousePointer() const { return m_pointer; }
    void SetMousePointer(platform::MousePointer pointer);

    // Takes the keyboard; error 5 when it cannot be taken: hidden, disabled, window not active, a
    // modal window or a popup open, the menu bar in use.
    void SetFocus();
    bool HasFocus() const;
    // Whether the Tab key and the mouse bring the keyboard here.
    void SetTabStop(bool stop);
    // Before the others of its container.
    void BringToFront();
    bool TakesClicks() const override
    {
        return m_array != nullptr ? bool(*m_array) : bool(OnClick);
    }
    // For the array that it is an element of, whose handler does what a click does.
    void HandClicksOnTo(const EventHandler<void(int)> &array) { m_array = &array; }

    // The id of a control that lies in this one, with places counted from its corner.
    ControlId Inside(const char *name) { return {Parent(), name, -1, this}; }

    EventHandler<void()> OnClick;
    EventHandler<void()> OnDblClick;
    EventHandler<void()> OnMouseMove;
    EventHandler<void(int key, int shift)> OnKeyDown;
    EventHandler<void(int key, int shift)> OnKeyUp;
    EventHandler<void()> OnLostFocus;

    QWidget *Widget() const { return m_widget; }

protected:
    // The widget becomes a child of its container or of the form's client area.
    VisualControl(const ControlId &id, const Place &place, QWidget *widget);

    // Where the widget stands, in twips; a docked control answers for itself.
    virtual void PutInPlace();
    // Colours, font or enabled state changed.
    virtual void Refresh();
    void Speak(const QString &name) override;
    // An event of the widget before it gets it itself; true when it ends here.
    virtual bool Event(QEvent *event);
    // A key that the window does not ask for goes down here; true when it did something.
    virtual bool TakeKey(int) { return false; }
    void Click();
    // A widget that tells its clicks itself: the mouse is not looked at here.
    void TellsItsClicks() { m_mouseClicks = false; }

    Place m_place;

private:
    friend class EventTap;
    bool MouseEvent(QEvent *event);
    bool KeyEvent(QEvent *event);

    QWidget *m_widget;
    QPointer<QObject> m_alive; // the widget; its container may go first
    std::unique_ptr<EventTap> m_tap;
    bool m_enabled = true;
    bool m_visible = true;
    bool m_mouseClicks = true;
    bool m_pressed = false;
    platform::Color m_backColor = SystemButtonFace;
    platform::Color m_foreColor = SystemButtonText;
    platform::Font m_font;
    platform::MousePointer m_pointer = platform::MousePointer::Default;
    const EventHandler<void(int)> *m_array = nullptr;
};

} // namespace platform
