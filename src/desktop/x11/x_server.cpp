#include "desktop/x11/x_server.h"

#include <QGuiApplication>

#include <cstdint>

namespace lookfar::desktop {

xcb_connection_t* x_server() {
    const auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return x11 ? x11->connection() : nullptr;
}

xcb_atom_t atom(xcb_connection_t* server, std::string_view name) {
    constexpr std::uint8_t make_it = 0;
    const auto request =
        xcb_intern_atom(server, make_it, static_cast<std::uint16_t>(name.size()), name.data());
    const Received<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(server, request, nullptr),
                                                  std::free);
    return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

} // namespace lookfar::desktop
