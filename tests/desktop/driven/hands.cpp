#include "desktop/driven/hands.h"

#include "desktop/driven/x_server.h"

#include <xcb/xtest.h>

#include <stdexcept>

namespace lookfar::driven {

namespace {

constexpr xcb_keysym_t left_shift = 0xffe1;

void fake(std::uint8_t type, std::uint8_t detail, const QPoint& point = {}) {
    xcb_test_fake_input(x_server(), type, detail, XCB_CURRENT_TIME, root_window(),
                        static_cast<std::int16_t>(point.x()), static_cast<std::int16_t>(point.y()),
                        0);
}

} // namespace

Hands::Hands() : keys_(xcb_key_symbols_alloc(x_server())) {}

void Hands::click(const QPoint& point, MouseButton button) {
    fake(XCB_MOTION_NOTIFY, 0, point);
    fake(XCB_BUTTON_PRESS, static_cast<std::uint8_t>(button));
    fake(XCB_BUTTON_RELEASE, static_cast<std::uint8_t>(button));
    finish_requests();
}

void Hands::double_click(const QPoint& point) {
    click(point);
    click(point);
}

void Hands::press(Key key) {
    strike(static_cast<xcb_keysym_t>(key));
    finish_requests();
}

void Hands::type(std::string_view text) {
    // The number of such a letter's symbol is its code.
    for (const char letter : text)
        strike(static_cast<xcb_keysym_t>(letter));
    finish_requests();
}

void Hands::strike(xcb_keysym_t symbol) {
    const xcb_keycode_t key = key_of(symbol);
    const bool is_shifted = xcb_key_symbols_get_keysym(keys_.get(), key, 0) != symbol;
    if (is_shifted)
        fake(XCB_KEY_PRESS, key_of(left_shift));
    fake(XCB_KEY_PRESS, key);
    fake(XCB_KEY_RELEASE, key);
    if (is_shifted)
        fake(XCB_KEY_RELEASE, key_of(left_shift));
}

xcb_keycode_t Hands::key_of(xcb_keysym_t symbol) const {
    const Reply<xcb_keycode_t> keys(xcb_key_symbols_get_keycode(keys_.get(), symbol));
    if (!keys || *keys == XCB_NO_SYMBOL)
        throw std::runtime_error("The keyboard has no such key.");
    return *keys;
}

} // namespace lookfar::driven
