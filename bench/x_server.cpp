#include "x_server.h"

#include <cstddef>
#include <span>
#include <stdexcept>

namespace lookfar::bench {

XConnection connect_to_x_server() {
    XConnection connection(xcb_connect(nullptr, nullptr));
    if (xcb_connection_has_error(connection.get()) != 0)
        throw std::runtime_error("There is no X server.");
    return connection;
}

const xcb_screen_t& screen_of(xcb_connection_t& connection) {
    return *xcb_setup_roots_iterator(xcb_get_setup(&connection)).data;
}

std::vector<std::uint8_t> pixels_of_square(xcb_connection_t& connection, xcb_window_t window, int x,
                                           int y, int side) {
    const auto length = static_cast<std::uint16_t>(side);
    const auto question =
        xcb_get_image(&connection, XCB_IMAGE_FORMAT_Z_PIXMAP, window, static_cast<std::int16_t>(x),
                      static_cast<std::int16_t>(y), length, length, ~0U);
    const Reply<xcb_get_image_reply_t> image(xcb_get_image_reply(&connection, question, nullptr));
    if (!image)
        throw std::runtime_error("The window can't be seen.");
    const std::span bytes(xcb_get_image_data(image.get()),
                          static_cast<std::size_t>(xcb_get_image_data_length(image.get())));
    return {bytes.begin(), bytes.end()};
}

} // namespace lookfar::bench
