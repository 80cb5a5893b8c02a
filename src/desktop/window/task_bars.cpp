#include "desktop/window/task_bars.h"

#include <QGuiApplication>
#include <QWidget>
#include <xcb/xcb.h>

#include <array>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string_view>

namespace lookfar::desktop {

namespace {

xcb_atom_t atom(xcb_connection_t* server, std::string_view name) {
    constexpr std::uint8_t make_it = 0;
    const auto request =
        xcb_intern_atom(server, make_it, static_cast<std::uint16_t>(name.size()), name.data());
    const std::unique_ptr<xcb_intern_atom_reply_t, decltype(&std::free)> reply(
        xcb_intern_atom_reply(server, request, nullptr), std::free);
    return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

} // namespace

void keep_out_of_task_bars(const QWidget& window) {
    const auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (!x11)
        return;
    xcb_connection_t* const server = x11->connection();
    const std::array states{atom(server, "_NET_WM_STATE_SKIP_TASKBAR"),
                            atom(server, "_NET_WM_STATE_SKIP_PAGER")};
    constexpr std::uint8_t bits = 32;
    xcb_change_property(server, XCB_PROP_MODE_APPEND, static_cast<xcb_window_t>(window.winId()),
                        atom(server, "_NET_WM_STATE"), XCB_ATOM_ATOM, bits, states.size(),
                        states.data());
}

} // namespace lookfar::desktop
