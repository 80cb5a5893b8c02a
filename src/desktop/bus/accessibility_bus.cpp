#include "desktop/bus/accessibility_bus.h"

#include "desktop/x11/x_server.h"

#include <cstdlib>
#include <memory>

namespace lookfar::desktop {

std::string accessibility_bus_address() {
    const std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)> server(
        xcb_connect(nullptr, nullptr), xcb_disconnect);
    if (xcb_connection_has_error(server.get()))
        return {};
    const xcb_atom_t property = atom(server.get(), "AT_SPI_BUS");
    constexpr std::uint32_t longest_words = 256;
    const auto root = xcb_setup_roots_iterator(xcb_get_setup(server.get())).data->root;
    const Received<xcb_get_property_reply_t> value(
        xcb_get_property_reply(
            server.get(),
            xcb_get_property(server.get(), 0, root, property, XCB_ATOM_STRING, 0, longest_words),
            nullptr),
        std::free);
    if (!value)
        return {};
    return {static_cast<const char*>(xcb_get_property_value(value.get())),
            static_cast<std::size_t>(xcb_get_property_value_length(value.get()))};
}

} // namespace lookfar::desktop
