#pragma once

#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>
#include <string_view>

namespace lookfar::desktop {

/// Owns a reply of the X server, or none.
template <class Reply>
using Received = std::unique_ptr<Reply, decltype(&std::free)>;

/// The connection that Qt holds; nothing without an X server.
xcb_connection_t* x_server();

/// The number that the server knows the name by, which it is told if it doesn't; XCB_ATOM_NONE
/// where no answer comes.
xcb_atom_t atom(xcb_connection_t* server, std::string_view name);

} // namespace lookfar::desktop
