#pragma once

#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>

namespace lookfar::driven {

struct Freed {
    // The X library gives its replies away as memory to free.
    // NOLINTNEXTLINE(cppcoreguidelines-no-malloc,cppcoreguidelines-owning-memory)
    void operator()(void* memory) const { std::free(memory); }
};

/// What a request to the X server brings back; empty after an error.
template <class Type>
using Reply = std::unique_ptr<Type, Freed>;

/// The connection of the tests' own Qt application to the X server that DISPLAY names.
xcb_connection_t* x_server();

/// Returns when the X server has carried out all that was asked of it.
void finish_requests();

/// The window behind all others.
xcb_window_t root_window();

} // namespace lookfar::driven
