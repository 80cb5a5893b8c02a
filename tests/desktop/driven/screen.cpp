#include "desktop/driven/screen.h"

#include "desktop/driven/x_server.h"

#include <QGuiApplication>
#include <QPixmap>
#include <QScreen>

#include <algorithm>
#include <string_view>

namespace lookfar::driven::screen {

namespace {

xcb_atom_t atom(std::string_view name) {
    const auto question =
        xcb_intern_atom(x_server(), 0, static_cast<std::uint16_t>(name.size()), name.data());
    const Reply<xcb_intern_atom_reply_t> reply(
        xcb_intern_atom_reply(x_server(), question, nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

/// A property by which window managers and programs speak with each other; empty where a window
/// has none.
template <class Value>
std::vector<Value> property(xcb_window_t window, std::string_view name) {
    constexpr std::uint32_t more_than_there_is = 1024;
    const auto question = xcb_get_property(x_server(), 0, window, atom(name),
                                           XCB_GET_PROPERTY_TYPE_ANY, 0, more_than_there_is);
    const Reply<xcb_get_property_reply_t> reply(
        xcb_get_property_reply(x_server(), question, nullptr));
    if (!reply)
        return {};
    const auto bytes = static_cast<std::size_t>(xcb_get_property_value_length(reply.get()));
    const auto* const first = static_cast<const Value*>(xcb_get_property_value(reply.get()));
    return {first, first + bytes / sizeof(Value)};
}

template <class Value>
bool has(const std::vector<Value>& values, Value value) {
    return std::ranges::find(values, value) != values.end();
}

bool belongs_to(xcb_window_t window, qint64 process) {
    return property<std::uint32_t>(window, "_NET_WM_PID") ==
           std::vector{static_cast<std::uint32_t>(process)};
}

QRect place_of(xcb_window_t window) {
    const auto size_question = xcb_get_geometry(x_server(), window);
    const auto corner_question = xcb_translate_coordinates(x_server(), window, root_window(), 0, 0);
    const Reply<xcb_get_geometry_reply_t> size(
        xcb_get_geometry_reply(x_server(), size_question, nullptr));
    const Reply<xcb_translate_coordinates_reply_t> corner(
        xcb_translate_coordinates_reply(x_server(), corner_question, nullptr));
    if (!size || !corner)
        return {};
    return {corner->dst_x, corner->dst_y, size->width, size->height};
}

Window look_at(xcb_window_t window) {
    const auto title = property<char>(window, "_NET_WM_NAME");
    return {.id = window,
            .title = {title.begin(), title.end()},
            .place = place_of(window),
            .is_active = has(property<xcb_window_t>(root_window(), "_NET_ACTIVE_WINDOW"), window),
            .is_fullscreen = has(property<xcb_atom_t>(window, "_NET_WM_STATE"),
                                 atom("_NET_WM_STATE_FULLSCREEN"))};
}

/// The window manager leaves menus and drop-down lists alone.
bool is_popup(xcb_window_t window) {
    const auto question = xcb_get_window_attributes(x_server(), window);
    const Reply<xcb_get_window_attributes_reply_t> attributes(
        xcb_get_window_attributes_reply(x_server(), question, nullptr));
    return attributes && attributes->override_redirect != 0 &&
           attributes->map_state == XCB_MAP_STATE_VIEWABLE;
}

} // namespace

std::vector<Window> windows_of(qint64 process) {
    std::vector<Window> found;
    for (const auto window : property<xcb_window_t>(root_window(), "_NET_CLIENT_LIST_STACKING"))
        if (belongs_to(window, process))
            found.push_back(look_at(window));
    return found;
}

bool has_popup_of(qint64 process) {
    const Reply<xcb_query_tree_reply_t> tree(
        xcb_query_tree_reply(x_server(), xcb_query_tree(x_server(), root_window()), nullptr));
    if (!tree)
        return false;
    const auto* const first = xcb_query_tree_children(tree.get());
    return std::any_of(first, first + tree->children_len, [&](xcb_window_t window) {
        return is_popup(window) && belongs_to(window, process);
    });
}

void ask_to_close(const Window& window) {
    constexpr std::uint32_t asked_by_a_pager = 2;
    xcb_client_message_event_t request{};
    request.response_type = XCB_CLIENT_MESSAGE;
    request.format = 32;
    request.window = window.id;
    request.type = atom("_NET_CLOSE_WINDOW");
    request.data.data32[1] = asked_by_a_pager;
    xcb_send_event(x_server(), 0, root_window(), XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char*>(&request));
    finish_requests();
}

QRect whole() {
    return QGuiApplication::primaryScreen()->geometry();
}

QColor colour_at(const QPoint& point) {
    const QPixmap pixel =
        QGuiApplication::primaryScreen()->grabWindow(0, point.x(), point.y(), 1, 1);
    return pixel.isNull() ? QColor() : pixel.toImage().pixelColor(0, 0);
}

} // namespace lookfar::driven::screen
