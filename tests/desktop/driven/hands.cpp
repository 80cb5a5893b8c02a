#include "desktop/driven/hands.h"

#include <QList>
#include <xcb/xtest.h>

#include <array>
#include <stdexcept>

namespace lookfar::driven {

namespace {

constexpr xcb_keysym_t left_shift = 0xffe1;

xcb_keysym_t symbol_of(char32_t letter) {
    constexpr char32_t last_of_latin_1 = 0xff;
    constexpr xcb_keysym_t other_letters = 0x01000000;
    return letter <= last_of_latin_1 ? letter : other_letters + letter;
}

} // namespace

Hands::Hands(const XConnection& x, const QString& letters)
    : x_(x), keys_(xcb_key_symbols_alloc(x.get())) {
    for (const char32_t letter : letters.toUcs4())
        if (key_of(symbol_of(letter)) == XCB_NO_SYMBOL)
            give_key_to(symbol_of(letter));
}

xcb_keycode_t Hands::key_of(xcb_keysym_t symbol) const {
    const Reply<xcb_keycode_t> keys(xcb_key_symbols_get_keycode(keys_.get(), symbol));
    return keys ? *keys : xcb_keycode_t{XCB_NO_SYMBOL};
}

xcb_keycode_t Hands::known_key_of(xcb_keysym_t symbol) const {
    const xcb_keycode_t key = key_of(symbol);
    if (key == XCB_NO_SYMBOL)
        throw std::runtime_error("The keyboard has no such key.");
    return key;
}

void Hands::give_key_to(xcb_keysym_t symbol) {
    const xcb_setup_t& setup = *xcb_get_setup(x_.get());
    for (int key = setup.max_keycode; key >= setup.min_keycode; --key) {
        const auto code = static_cast<xcb_keycode_t>(key);
        if (xcb_key_symbols_get_keysym(keys_.get(), code, 0) != XCB_NO_SYMBOL)
            continue;
        const std::array plain_and_shifted{symbol, symbol};
        xcb_change_keyboard_mapping(x_.get(), 1, code, plain_and_shifted.size(),
                                    plain_and_shifted.data());
        x_.finish();
        keys_.reset(xcb_key_symbols_alloc(x_.get()));
        return;
    }
    throw std::runtime_error("The keyboard has no key to spare.");
}

void Hands::fake(std::uint8_t type, std::uint8_t detail, const QPoint& point) const {
    xcb_test_fake_input(x_.get(), type, detail, XCB_CURRENT_TIME, x_.root(),
                        static_cast<std::int16_t>(point.x()), static_cast<std::int16_t>(point.y()),
                        0);
}

void Hands::press_and_release(MouseButton button) const {
    const auto number = static_cast<std::uint8_t>(button);
    fake(XCB_BUTTON_PRESS, number);
    fake(XCB_BUTTON_RELEASE, number);
}

void Hands::point_at(const QPoint& point) {
    fake(XCB_MOTION_NOTIFY, 0, point);
    x_.finish();
}

void Hands::click(const QPoint& point, MouseButton button) {
    fake(XCB_MOTION_NOTIFY, 0, point);
    press_and_release(button);
    x_.finish();
}

void Hands::double_click(const QPoint& point) {
    fake(XCB_MOTION_NOTIFY, 0, point);
    press_and_release(MouseButton::left);
    press_and_release(MouseButton::left);
    x_.finish();
}

void Hands::press(Key key) {
    strike(static_cast<xcb_keysym_t>(key));
    x_.finish();
}

void Hands::press_with_shift(Key key) {
    strike(known_key_of(static_cast<xcb_keysym_t>(key)), true);
    x_.finish();
}

void Hands::type(const QString& text) {
    for (const char32_t letter : text.toUcs4())
        strike(symbol_of(letter));
    x_.finish();
}

void Hands::strike(xcb_keysym_t symbol) {
    const xcb_keycode_t key = known_key_of(symbol);
    strike(key, xcb_key_symbols_get_keysym(keys_.get(), key, 0) != symbol);
}

void Hands::strike(xcb_keycode_t key, bool is_shifted) {
    const xcb_keycode_t shift = known_key_of(left_shift);
    if (is_shifted)
        fake(XCB_KEY_PRESS, shift);
    fake(XCB_KEY_PRESS, key);
    fake(XCB_KEY_RELEASE, key);
    if (is_shifted)
        fake(XCB_KEY_RELEASE, shift);
}

} // namespace lookfar::driven
