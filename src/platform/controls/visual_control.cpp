#include "platform/controls/visual_control.h"

#include "platform/controls/form_window.h"
#include "platform/controls/held_keys.h"
#include "platform/controls/keys.h"
#include "platform/movies/drawn_picture.h"

#include <QApplication>
#include <QCursor>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPixmap>
#include <QWidget>

namespace platform {

class EventTap : public QObject {
public:
    explicit EventTap(VisualControl &control) : m_control(control) {}
    bool eventFilter(QObject *, QEvent *event) override
    {
        return !m_control.Parent().Unloaded() && m_control.Event(event);
    }

private:
    VisualControl &m_control;
};

VisualControl::VisualControl(const ControlId &id, const Place &place, QWidget *widget)
    : Control(id), m_place(place), m_widget(widget), m_alive(widget),
      m_tap(std::make_unique<EventTap>(*this))
{
    widget->setParent(id.Container != nullptr ? id.Container->Widget() : id.Parent.Client());
    widget->setObjectName(Key());
    LetBePressed(*widget, *this);
    widget->setAccessibleDescription(Key());
    widget->setMouseTracking(true);
    widget->setAttribute(Qt::WA_NoMousePropagation);
    widget->setFocusPolicy(Qt::NoFocus);
    widget->installEventFilter(m_tap.get());
    VisualControl::PutInPlace();
    widget->show();
}

VisualControl::~VisualControl()
{
    LetKeysGo(*this);
    if (m_alive.isNull())
        return;
    m_widget->removeEventFilter(m_tap.get());
    delete m_widget;
}

void VisualControl::PutInPlace()
{
    // The edges are rounded and not the sizes, so that neighbours stay flush.
    const int left = ToPixels(m_place.Left);
    const int top = ToPixels(m_place.Top);
    m_widget->setGeometry(left, top, ToPixels(m_place.Left + m_place.Width) - left,
                          ToPixels(m_place.Top + m_place.Height) - top);
}

void VisualControl::Refresh()
{
    m_widget->update();
}

void VisualControl::Speak(const QString &name)
{
    m_widget->setAccessibleName(name);
}

void VisualControl::SetLeft(double twips)
{
    m_place.Left = twips;
    PutInPlace();
}

void VisualControl::SetTop(double twips)
{
    m_place.Top = twips;
    PutInPlace();
}

void VisualControl::SetWidth(double twips)
{
    if (twips < 0)
        throw RunTimeError(InvalidPropertyValue);
    m_place.Width = twips;
    PutInPlace();
}

void VisualControl::SetHeight(double twips)
{
    if (twips < 0)
        throw RunTimeError(InvalidPropertyValue);
    m_place.Height = twips;
    PutInPlace();
}

void VisualControl::SetEnabled(bool enabled)
{
    m_enabled = enabled;
    m_widget->setEnabled(enabled);
    Note("Enabled", enabled);
    Refresh();
}

void VisualControl::SetVisible(bool visible)
{
    m_visible = visible;
    m_widget->setVisible(visible);
    Note("Visible", visible);
}

QString VisualControl::ToolTipText() const
{
    return m_widget->toolTip();
}

void VisualControl::SetToolTipText(const QString &text)
{
    m_widget->setToolTip(text);
}

void VisualControl::SetBackColor(platform::Color color)
{
    m_backColor = color;
    Note("BackColor", QStringLiteral("%1").arg(color, 8, 16, QChar(u'0')));
    Refresh();
}

void VisualControl::SetForeColor(platform::Color color)
{
    m_foreColor = color;
    Refresh();
}

void VisualControl::SetFontName(const QString &family)
{
    m_font.Name = family;
    Refresh();
}

void VisualControl::SetFontSize(double points)
{
    if (points <= 0)
        throw RunTimeError(InvalidPropertyValue);
    m_font.Size = points;
    Refresh();
}

void VisualControl::SetFontBold(bool bold)
{
    m_font.Bold = bold;
    Refresh();
}

void VisualControl::SetFontItalic(bool italic)
{
    m_font.Italic = italic;
    Refresh();
}

void VisualControl::SetFontUnderline(bool underline)
{
    m_font.Underline = underline;
    Refresh();
}

void VisualControl::SetMousePointer(platform::MousePointer pointer)
{
    m_pointer = pointer;
    switch (pointer) {
    case MousePointer::Default:
        m_widget->unsetCursor();
        break;
    case MousePointer::Hourglass:
        m_widget->setCursor(Qt::WaitCursor);
        break;
    case MousePointer::Custom: {
        // The tip of the finger lies at 10, 2 of a drawing of 32 by 32.
        const QPixmap hand =
            DrawnPicture(QStringLiteral("mano"), QSize(32, 32), m_widget->devicePixelRatioF());
        m_widget->setCursor(hand.isNull() ? QCursor(Qt::PointingHandCursor) : QCursor(hand, 10, 2));
        break;
    }
    }
    Note("MousePointer", QString::number(static_cast<int>(pointer)));
}

void VisualControl::SetFocus()
{
    QWidget *window = m_widget->window();
    const bool menuInUse = qobject_cast<QMenuBar *>(QApplication::focusWidget()) != nullptr ||
                           QApplication::activePopupWidget() != nullptr;
    const bool otherModal =
        QApplication::activeModalWidget() != nullptr && QApplication::activeModalWidget() != window;
    if (Parent().Unloaded() || !m_widget->isVisibleTo(window) || !m_enabled || menuInUse ||
        otherModal || !window->isActiveWindow() || !Parent().InFront())
        throw RunTimeError(BadCall, Key());
    if (!m_widget->hasFocus())
        m_widget->setFocus(Qt::OtherFocusReason);
}

bool VisualControl::HasFocus() const
{
    return m_widget->hasFocus();
}

void VisualControl::SetTabStop(bool stop)
{
    m_widget->setFocusPolicy(stop ? Qt::StrongFocus : Qt::NoFocus);
}

void VisualControl::BringToFront()
{
    m_widget->raise();
}

void VisualControl::Click()
{
    if (!Parent().Unloaded())
        OnClick();
}

bool VisualControl::Event(QEvent *event)
{
    if (event->type() == PressAsked) {
        if (m_widget->isEnabled() && m_widget->isVisible())
            Click();
        return true;
    }
    switch (event->type()) {
    case QEvent::MouseMove:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
        return MouseEvent(event);
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        return KeyEvent(event);
    case QEvent::FocusOut:
        LetKeysGo(*this);
        OnLostFocus();
        return false;
    default:
        return false;
    }
}

bool VisualControl::MouseEvent(QEvent *event)
{
    auto *mouse = static_cast<QMouseEvent *>(event);
    if (event->type() == QEvent::MouseMove) {
        // Over a disabled control the pointer is over the window.
        if (!m_enabled) {
            Parent().OnMouseMove();
        } else {
            OnMouseMove();
        }
        return false;
    }
    if (!m_enabled || mouse->button() != Qt::LeftButton)
        return false;
    if (event->type() == QEvent::MouseButtonRelease) {
        const bool clicked = m_pressed && m_widget->rect().contains(mouse->position().toPoint());
        m_pressed = false;
        if (clicked && m_mouseClicks)
            Click();
        return m_mouseClicks;
    }
    // A quick child's second press is a press like the first.
    m_pressed = true;
    if (event->type() == QEvent::MouseButtonDblClick)
        OnDblClick();
    return m_mouseClicks;
}

bool VisualControl::KeyEvent(QEvent *event)
{
    auto *key = static_cast<QKeyEvent *>(event);
    const int code = ClassicKey(*key);
    if (event->type() == QEvent::KeyPress) {
        // A held key acts once.
        if (!TakePress(*this))
            return static_cast<bool>(OnKeyDown);
        if (!OnKeyDown && !OnKeyUp)
            return TakeKey(code);
        OnKeyDown(code, ShiftState(*key));
        return static_cast<bool>(OnKeyDown);
    }
    // A release whose press went to another window, a menu or a dialog is none of ours.
    if (!TakeRelease(*this) || !OnKeyUp)
        return false;
    OnKeyUp(code, ShiftState(*key));
    return true;
}

} // namespace platform
