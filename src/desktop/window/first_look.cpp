#include "desktop/window/first_look.h"

#include "desktop/x11/x_server.h"

#include <QImage>
#include <QPixmap>
#include <QWidget>

#include <algorithm>
#include <utility>

namespace lookfar::desktop {

namespace {

constexpr std::uint8_t depth = 24;

bool has_many_colours(xcb_connection_t* server) {
    return xcb_setup_roots_iterator(xcb_get_setup(server)).data->root_depth == depth;
}

void set_background(xcb_connection_t* server, xcb_window_t window, xcb_pixmap_t pixmap) {
    xcb_change_window_attributes(server, window, XCB_CW_BACK_PIXMAP, &pixmap);
}

/// By stripes, since a request has a limit.
void put(xcb_connection_t* server, xcb_drawable_t target, const QImage& image) {
    constexpr int stripe = 32;
    const xcb_gcontext_t context = xcb_generate_id(server);
    xcb_create_gc(server, context, target, 0, nullptr);
    for (int top = 0; top < image.height(); top += stripe) {
        const int height = std::min(stripe, image.height() - top);
        xcb_put_image(server, XCB_IMAGE_FORMAT_Z_PIXMAP, target, context,
                      static_cast<std::uint16_t>(image.width()), static_cast<std::uint16_t>(height),
                      0, static_cast<std::int16_t>(top), 0, depth,
                      static_cast<std::uint32_t>(image.bytesPerLine() * height),
                      image.constScanLine(top));
    }
    xcb_free_gc(server, context);
}

} // namespace

void FirstLook::give(QWidget& window) {
    xcb_connection_t* const server = x_server();
    if (!server || !has_many_colours(server))
        return;
    const QImage look = window.grab().toImage().convertToFormat(QImage::Format_RGB32);
    window_ = static_cast<std::uint32_t>(window.winId());
    const xcb_pixmap_t pixmap = xcb_generate_id(server);
    xcb_create_pixmap(server, depth, pixmap, window_, static_cast<std::uint16_t>(look.width()),
                      static_cast<std::uint16_t>(look.height()));
    put(server, pixmap, look);
    set_background(server, window_, pixmap);
    // The window keeps it.
    xcb_free_pixmap(server, pixmap);
}

void FirstLook::withdraw() {
    if (const auto window = std::exchange(window_, 0))
        set_background(x_server(), window, XCB_BACK_PIXMAP_NONE);
}

} // namespace lookfar::desktop
