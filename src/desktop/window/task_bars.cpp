#include "desktop/window/task_bars.h"

#include "desktop/x11/x_server.h"

#include <QWidget>

#include <array>
#include <cstdint>

namespace lookfar::desktop {

void keep_out_of_task_bars(const QWidget& window) {
    xcb_connection_t* const server = x_server();
    if (!server)
        return;
    const std::array states{atom(server, "_NET_WM_STATE_SKIP_TASKBAR"),
                            atom(server, "_NET_WM_STATE_SKIP_PAGER")};
    constexpr std::uint8_t bits = 32;
    xcb_change_property(server, XCB_PROP_MODE_APPEND, static_cast<xcb_window_t>(window.winId()),
                        atom(server, "_NET_WM_STATE"), XCB_ATOM_ATOM, bits, states.size(),
                        states.data());
}

} // namespace lookfar::desktop
