#include "desktop/driven/x_server.h"

#include <QGuiApplication>

namespace lookfar::driven {

xcb_connection_t* x_server() {
    return qGuiApp->nativeInterface<QNativeInterface::QX11Application>()->connection();
}

void finish_requests() {
    const Reply<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(x_server(), xcb_get_input_focus(x_server()), nullptr));
}

xcb_window_t root_window() {
    return xcb_setup_roots_iterator(xcb_get_setup(x_server())).data->root;
}

} // namespace lookfar::driven
