#include "desktop/driven/screen.h"

#include <algorithm>
#include <span>
#include <stdexcept>

namespace lookfar::driven {

Screen::Screen(const XConnection& x) : x_(x) {
    if (xcb_ewmh_init_atoms_replies(&names_, xcb_ewmh_init_atoms(x.get(), &names_), nullptr) == 0)
        throw std::runtime_error("The X server does not know window managers.");
}

Screen::~Screen() {
    xcb_ewmh_connection_wipe(&names_);
}

QSize Screen::size() const {
    return {x_.screen().width_in_pixels, x_.screen().height_in_pixels};
}

std::vector<ScreenWindow> Screen::windows_of(qint64 process) const {
    std::vector<ScreenWindow> found;
    xcb_ewmh_get_windows_reply_t all{};
    const auto question = xcb_ewmh_get_client_list_stacking(&names_, 0);
    if (xcb_ewmh_get_client_list_stacking_reply(&names_, question, &all, nullptr) == 0)
        return found;
    for (const xcb_window_t id : std::span(all.windows, all.windows_len))
        if (belongs_to(id, process))
            found.push_back(look_at(id));
    xcb_ewmh_get_windows_reply_wipe(&all);
    return found;
}

bool Screen::belongs_to(xcb_window_t id, qint64 process) const {
    std::uint32_t owner = 0;
    const auto question = xcb_ewmh_get_wm_pid(&names_, id);
    return xcb_ewmh_get_wm_pid_reply(&names_, question, &owner, nullptr) != 0 && owner == process;
}

ScreenWindow Screen::look_at(xcb_window_t id) const {
    return {
        .id = id, .title = title_of(id), .place = place_of(id), .is_fullscreen = is_fullscreen(id)};
}

std::string Screen::title_of(xcb_window_t id) const {
    xcb_ewmh_get_utf8_strings_reply_t reply{};
    const auto question = xcb_ewmh_get_wm_name(&names_, id);
    if (xcb_ewmh_get_wm_name_reply(&names_, question, &reply, nullptr) == 0)
        return {};
    std::string title(reply.strings, reply.strings_len);
    xcb_ewmh_get_utf8_strings_reply_wipe(&reply);
    return title;
}

QRect Screen::place_of(xcb_window_t id) const {
    const auto size_question = xcb_get_geometry(x_.get(), id);
    const auto corner_question = xcb_translate_coordinates(x_.get(), id, x_.root(), 0, 0);
    const Reply<xcb_get_geometry_reply_t> size(
        xcb_get_geometry_reply(x_.get(), size_question, nullptr));
    const Reply<xcb_translate_coordinates_reply_t> corner(
        xcb_translate_coordinates_reply(x_.get(), corner_question, nullptr));
    return size && corner ? QRect(corner->dst_x, corner->dst_y, size->width, size->height)
                          : QRect();
}

bool Screen::is_fullscreen(xcb_window_t id) const {
    xcb_ewmh_get_atoms_reply_t states{};
    const auto question = xcb_ewmh_get_wm_state(&names_, id);
    if (xcb_ewmh_get_wm_state_reply(&names_, question, &states, nullptr) == 0)
        return false;
    const auto count = std::ranges::count(std::span(states.atoms, states.atoms_len),
                                          names_._NET_WM_STATE_FULLSCREEN);
    xcb_ewmh_get_atoms_reply_wipe(&states);
    return count > 0;
}

bool Screen::has_popup_of(qint64 process) const {
    const Reply<xcb_query_tree_reply_t> tree(
        xcb_query_tree_reply(x_.get(), xcb_query_tree(x_.get(), x_.root()), nullptr));
    if (!tree)
        return false;
    const std::span all(xcb_query_tree_children(tree.get()), tree->children_len);
    return std::ranges::any_of(
        all, [&](xcb_window_t id) { return is_popup(id) && belongs_to(id, process); });
}

/// The window manager leaves menus and drop-down lists alone.
bool Screen::is_popup(xcb_window_t id) const {
    const Reply<xcb_get_window_attributes_reply_t> attributes(xcb_get_window_attributes_reply(
        x_.get(), xcb_get_window_attributes(x_.get(), id), nullptr));
    return attributes && attributes->override_redirect != 0 &&
           attributes->map_state == XCB_MAP_STATE_VIEWABLE;
}

xcb_window_t Screen::active_window() const {
    xcb_window_t active = XCB_NONE;
    const auto question = xcb_ewmh_get_active_window(&names_, 0);
    xcb_ewmh_get_active_window_reply(&names_, question, &active, nullptr);
    return active;
}

void Screen::ask_to_close(const ScreenWindow& window) {
    xcb_ewmh_request_close_window(&names_, 0, window.id, XCB_CURRENT_TIME,
                                  XCB_EWMH_CLIENT_SOURCE_TYPE_OTHER);
    x_.finish();
}

QImage Screen::pixels(const QRect& area) const {
    const QRect seen = area & QRect(QPoint(), size());
    const auto question = xcb_get_image(
        x_.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, x_.root(), static_cast<std::int16_t>(seen.x()),
        static_cast<std::int16_t>(seen.y()), static_cast<std::uint16_t>(seen.width()),
        static_cast<std::uint16_t>(seen.height()), ~0U);
    const Reply<xcb_get_image_reply_t> reply(xcb_get_image_reply(x_.get(), question, nullptr));
    if (!reply)
        return {};
    const QImage shared(xcb_get_image_data(reply.get()), seen.width(), seen.height(),
                        qsizetype{seen.width()} * 4, QImage::Format_RGB32);
    return shared.copy();
}

QColor Screen::colour_at(const QPoint& point) const {
    const QImage image = pixels(QRect(point, QSize(1, 1)));
    return image.isNull() ? QColor() : image.pixelColor(0, 0);
}

} // namespace lookfar::driven
