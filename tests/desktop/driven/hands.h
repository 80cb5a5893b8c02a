#pragma once

#include <QPoint>
#include <xcb/xcb_keysyms.h>

#include <memory>
#include <string_view>

namespace lookfar::driven {

enum class MouseButton : std::uint8_t { left = 1, right = 3 };

enum class Key : xcb_keysym_t {
    none = XCB_NO_SYMBOL,
    tab = 0xff09,
    enter = 0xff0d,
    escape = 0xff1b,
    up = 0xff52,
    down = 0xff54,
    menu = 0xff67,
    f4 = 0xffc1,
    shift = 0xffe1,
    control = 0xffe3,
    alt = 0xffe9,
    del = 0xffff,
    f5 = 0xffc2,
    c = 'c',
    v = 'v'
};

/// The user's hands on mouse and keyboard. What they do goes to whatever window lies under the
/// pointer or has the keyboard, as with any user. They use the connection of the tests' own Qt
/// application to the X server that DISPLAY names.
class Hands {
  public:
    Hands();

    void point_at(const QPoint& point);
    void click(const QPoint& point, MouseButton button = MouseButton::left);
    void double_click(const QPoint& point);
    /// Presses the left button and holds it.
    void take(const QPoint& point);
    void let_go();

    /// Presses a key, while another one is held down if it is given.
    void press(Key key, Key held = Key::none);
    /// Types letters of ASCII.
    void type(std::string_view text);

  private:
    /// Throws where the keyboard has no such key.
    xcb_keycode_t code_of(Key key) const;

    std::unique_ptr<xcb_key_symbols_t, decltype(&xcb_key_symbols_free)> keys_;
};

} // namespace lookfar::driven
