#include "platform/machine/keyboard.h"

#include <QGuiApplication>

#include <cstdlib>
#include <memory>

#ifndef Q_OS_WIN
#include <xcb/xcb.h>
// The header uses a C++ keyword as a name.
#define explicit explicit_ // NOLINT(clang-diagnostic-keyword-macro)
#include <xcb/xkb.h>
#undef explicit
#else
#include <windows.h>
#endif

namespace platform {

#ifndef Q_OS_WIN
namespace {

xcb_connection_t *Connection()
{
    const auto *x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    // Off screen there is an interface without a connection.
    return x11 == nullptr ? nullptr : x11->connection();
}

} // namespace
#endif

void AskForDetectableAutoRepeat()
{
#ifndef Q_OS_WIN
    xcb_connection_t *connection = Connection();
    if (connection == nullptr)
        return;
    const uint32_t flag = XCB_XKB_PER_CLIENT_FLAG_DETECTABLE_AUTO_REPEAT;
    xcb_xkb_per_client_flags(connection, XCB_XKB_ID_USE_CORE_KBD, flag, flag, 0, 0, 0);
    xcb_flush(connection);
#endif
}

KeysDown KeysDownNow()
{
#ifndef Q_OS_WIN
    xcb_connection_t *connection = Connection();
    if (connection == nullptr)
        return {};
    const std::unique_ptr<xcb_query_keymap_reply_t, decltype(&std::free)> reply(
        xcb_query_keymap_reply(connection, xcb_query_keymap(connection), nullptr), &std::free);
    if (!reply)
        return {};
    // One bit a key, by its number.
    std::vector<int> down;
    for (int key = 0; key < 256; ++key)
        if ((reply->keys[key / 8] >> (key % 8) & 1) != 0)
            down.push_back(key);
    return down;
#else
    // The toolkit numbers a key as its messages do, where keys that came to the keyboard later have
    // a ninth bit. The system does not say which of two keys with one meaning is down: both may be.
    constexpr int LaterKey = 0x100;
    std::vector<int> down;
    for (int key = 1; key < 256; ++key) {
        const int number =
            static_cast<int>(::MapVirtualKeyW(static_cast<UINT>(key), MAPVK_VK_TO_VSC));
        // Buttons of the mouse have none.
        if (number != 0 && (::GetAsyncKeyState(key) & 0x8000) != 0)
            down.insert(down.end(), {number, number | LaterKey});
    }
    return down;
#endif
}

} // namespace platform
