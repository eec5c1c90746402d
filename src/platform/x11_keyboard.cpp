#include "platform/x11_keyboard.h"

#include <QGuiApplication>

#ifdef MORLENE_XCB
#include <xcb/xcb.h>
// The header uses a C++ keyword as a name.
#define explicit explicit_ // NOLINT(clang-diagnostic-keyword-macro)
#include <xcb/xkb.h>
#undef explicit
#endif

namespace platform {

void AskForDetectableAutoRepeat()
{
#ifdef MORLENE_XCB
    const auto *x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    // Off screen there is an interface without a connection.
    xcb_connection_t *connection = x11 == nullptr ? nullptr : x11->connection();
    if (connection == nullptr)
        return;
    const uint32_t flag = XCB_XKB_PER_CLIENT_FLAG_DETECTABLE_AUTO_REPEAT;
    xcb_xkb_per_client_flags(connection, XCB_XKB_ID_USE_CORE_KBD, flag, flag, 0, 0, 0);
    xcb_flush(connection);
#endif
}

} // namespace platform
