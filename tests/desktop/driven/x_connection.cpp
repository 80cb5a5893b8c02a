#include "desktop/driven/x_connection.h"

#include <stdexcept>

namespace lookfar::driven {

XConnection::XConnection() : connection_(xcb_connect(nullptr, nullptr)) {
    if (xcb_connection_has_error(get()) != 0)
        throw std::runtime_error("The X server does not answer.");
    screen_ = xcb_setup_roots_iterator(xcb_get_setup(get())).data;
}

void XConnection::finish() const {
    const Reply<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(get(), xcb_get_input_focus(get()), nullptr));
}

} // namespace lookfar::driven
