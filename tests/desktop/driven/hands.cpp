#include "desktop/driven/hands.h"

#include <QGuiApplication>
#include <xcb/xtest.h>

#include <cstdlib>
#include <stdexcept>

namespace lookfar::driven {

namespace {

xcb_connection_t* x_server() {
    return qGuiApp->nativeInterface<QNativeInterface::QX11Application>()->connection();
}

void fake(std::uint8_t type, std::uint8_t detail, const QPoint& point = {}) {
    xcb_test_fake_input(x_server(), type, detail, XCB_CURRENT_TIME, XCB_NONE,
                        static_cast<std::int16_t>(point.x()), static_cast<std::int16_t>(point.y()),
                        0);
}

void fake_click(const QPoint& point, MouseButton button) {
    fake(XCB_MOTION_NOTIFY, 0, point);
    fake(XCB_BUTTON_PRESS, static_cast<std::uint8_t>(button));
    fake(XCB_BUTTON_RELEASE, static_cast<std::uint8_t>(button));
}

/// What belongs together goes out in one piece: on a busy machine the parts of a double click would
/// else come too far from each other.
void send() {
    xcb_flush(x_server());
}

} // namespace

Hands::Hands() : keys_(xcb_key_symbols_alloc(x_server()), xcb_key_symbols_free) {}

void Hands::point_at(const QPoint& point) {
    fake(XCB_MOTION_NOTIFY, 0, point);
    send();
}

void Hands::click(const QPoint& point, MouseButton button) {
    fake_click(point, button);
    send();
}

void Hands::double_click(const QPoint& point) {
    fake_click(point, MouseButton::left);
    fake_click(point, MouseButton::left);
    send();
}

void Hands::take(const QPoint& point) {
    fake(XCB_MOTION_NOTIFY, 0, point);
    fake(XCB_BUTTON_PRESS, static_cast<std::uint8_t>(MouseButton::left));
    send();
}

void Hands::let_go() {
    fake(XCB_BUTTON_RELEASE, static_cast<std::uint8_t>(MouseButton::left));
    send();
}

void Hands::press(Key key, Key held) {
    if (held != Key::none)
        fake(XCB_KEY_PRESS, code_of(held));
    fake(XCB_KEY_PRESS, code_of(key));
    fake(XCB_KEY_RELEASE, code_of(key));
    if (held != Key::none)
        fake(XCB_KEY_RELEASE, code_of(held));
    send();
}

void Hands::type(std::string_view text) {
    for (const char letter : text) {
        // The number of such a letter's key is its code.
        const Key key{static_cast<xcb_keysym_t>(letter)};
        const xcb_keysym_t plain = xcb_key_symbols_get_keysym(keys_.get(), code_of(key), 0);
        press(key, plain == static_cast<xcb_keysym_t>(key) ? Key::none : Key::shift);
    }
}

xcb_keycode_t Hands::code_of(Key key) const {
    const std::unique_ptr<xcb_keycode_t, decltype(&std::free)> codes(
        xcb_key_symbols_get_keycode(keys_.get(), static_cast<xcb_keysym_t>(key)), std::free);
    if (!codes || *codes == XCB_NO_SYMBOL)
        throw std::runtime_error("The keyboard has no such key.");
    return *codes;
}

} // namespace lookfar::driven
