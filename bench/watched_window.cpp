#include "watched_window.h"

#include <array>
#include <cstring>
#include <poll.h>
#include <stdexcept>

namespace lookfar::bench {

namespace {

constexpr int longest_wait = 10'000;
constexpr int side = 20;

} // namespace

WatchedWindow::WatchedWindow(xcb_window_t window)
    : connection_(connect_to_x_server()),
      window_(window),
      root_(screen_of(*connection_).root),
      protocols_(atom("WM_PROTOCOLS")),
      ping_(atom("_NET_WM_PING")) {
    // Toolkits differ in whom of those that watch the root window they answer.
    constexpr std::uint32_t answers =
        XCB_EVENT_MASK_STRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_change_window_attributes(connection_.get(), root_, XCB_CW_EVENT_MASK, &answers);
}

xcb_atom_t WatchedWindow::atom(std::string_view name) const {
    const auto question =
        xcb_intern_atom(connection_.get(), 0, static_cast<std::uint16_t>(name.size()), name.data());
    const Reply<xcb_intern_atom_reply_t> reply(
        xcb_intern_atom_reply(connection_.get(), question, nullptr));
    if (!reply)
        throw std::runtime_error("The X server knows no names.");
    return reply->atom;
}

std::vector<std::uint8_t> WatchedWindow::pixels() const {
    const auto size_question = xcb_get_geometry(connection_.get(), window_);
    const Reply<xcb_get_geometry_reply_t> size(
        xcb_get_geometry_reply(connection_.get(), size_question, nullptr));
    if (!size)
        throw std::runtime_error("The window is gone.");
    return pixels_of_square(*connection_, window_, size->width / 2, size->height * 3 / 5, side);
}

void WatchedWindow::ping() {
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window_;
    message.type = protocols_;
    message.data.data32[0] = ping_;
    message.data.data32[1] = ++number_;
    message.data.data32[2] = window_;
    std::array<char, sizeof message> bytes{};
    std::memcpy(bytes.data(), &message, sizeof message);
    xcb_send_event(connection_.get(), 0, window_, XCB_EVENT_MASK_NO_EVENT, bytes.data());
    xcb_flush(connection_.get());
    while (true) {
        const Reply<xcb_generic_event_t> event(xcb_poll_for_event(connection_.get()));
        if (event && is_answer(*event))
            return;
        if (!event)
            wait_for_event();
    }
}

bool WatchedWindow::is_answer(const xcb_generic_event_t& event) const {
    constexpr int without_sender = 0x7f;
    if ((event.response_type & without_sender) != XCB_CLIENT_MESSAGE)
        return false;
    xcb_client_message_event_t message{};
    std::memcpy(&message, &event, sizeof message);
    return message.window == root_ && message.type == protocols_ &&
           message.data.data32[0] == ping_ && message.data.data32[1] == number_;
}

void WatchedWindow::wait_for_event() const {
    pollfd server{.fd = xcb_get_file_descriptor(connection_.get()), .events = POLLIN, .revents = 0};
    if (::poll(&server, 1, longest_wait) <= 0 || xcb_connection_has_error(connection_.get()) != 0)
        throw std::runtime_error("The window does not answer.");
}

} // namespace lookfar::bench
