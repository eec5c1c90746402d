#include "platform/controls/keys.h"

#include "platform/controls/control.h"

#include <QKeyEvent>

namespace platform {

int ClassicKey(const QKeyEvent &event)
{
    const int key = event.key();
    if (key >= Qt::Key_A && key <= Qt::Key_Z)
        return 'A' + (key - Qt::Key_A);
    if (key >= Qt::Key_0 && key <= Qt::Key_9)
        return '0' + (key - Qt::Key_0);
    if (key >= Qt::Key_F1 && key <= Qt::Key_F12)
        return 112 + (key - Qt::Key_F1);
    switch (key) {
    case Qt::Key_Space:
        return KeySpace;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return KeyEnter;
    case Qt::Key_Left:
        return KeyLeft;
    case Qt::Key_Up:
        return KeyUp;
    case Qt::Key_Right:
        return KeyRight;
    case Qt::Key_Down:
        return KeyDown;
    case Qt::Key_Backspace:
        return 8;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return 9;
    case Qt::Key_Shift:
        return 16;
    case Qt::Key_Control:
        return 17;
    case Qt::Key_Alt:
        return 18;
    case Qt::Key_Escape:
        return 27;
    case Qt::Key_PageUp:
        return 33;
    case Qt::Key_PageDown:
        return 34;
    case Qt::Key_End:
        return 35;
    case Qt::Key_Home:
        return 36;
    case Qt::Key_Insert:
        return 45;
    case Qt::Key_Delete:
        return 46;
    default:
        return 0;
    }
}

int ShiftState(const QKeyEvent &event)
{
    const Qt::KeyboardModifiers modifiers = event.modifiers();
    return (modifiers.testFlag(Qt::ShiftModifier) ? 1 : 0) +
           (modifiers.testFlag(Qt::ControlModifier) ? 2 : 0) +
           (modifiers.testFlag(Qt::AltModifier) ? 4 : 0);
}

} // namespace platform
