#pragma once

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <vector>
#include <xcb/xcb.h>

namespace lookfar::bench {

struct Disconnected {
    void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
};
using XConnection = std::unique_ptr<xcb_connection_t, Disconnected>;

struct Freed {
    // The X library gives its replies away as memory to free.
    // NOLINTNEXTLINE(cppcoreguidelines-no-malloc,cppcoreguidelines-owning-memory)
    void operator()(void* memory) const { std::free(memory); }
};
template <class Type>
using Reply = std::unique_ptr<Type, Freed>;

/// A connection to the X server that DISPLAY names. Throws std::runtime_error where there is none.
XConnection connect_to_x_server();

/// The first screen of the server, with its size and its root window.
const xcb_screen_t& screen_of(xcb_connection_t& connection);

/// The pixels of a square whose top left corner is at (x, y) in the window, with those of the
/// windows that lie in it: rows of four bytes a pixel, blue first. Throws std::runtime_error where
/// the window is gone or can't be seen.
std::vector<std::uint8_t> pixels_of_square(xcb_connection_t& connection, xcb_window_t window, int x,
                                           int y, int side);

} // namespace lookfar::bench
