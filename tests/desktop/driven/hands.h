#pragma once

#include <QPoint>
#include <xcb/xcb_keysyms.h>

#include <memory>
#include <string_view>

namespace lookfar::driven {

enum class MouseButton : std::uint8_t { left = 1, right = 3 };

/// The keys that write nothing.
enum class Key : xcb_keysym_t {
    tab = 0xff09,
    enter = 0xff0d,
    escape = 0xff1b,
    up = 0xff52,
    down = 0xff54,
    menu = 0xff67
};

/// The user's hands on mouse and keyboard. What they do goes to whatever window lies under the
/// pointer or has the keyboard, as with any user.
class Hands {
  public:
    Hands();

    void click(const QPoint& point, MouseButton button = MouseButton::left);
    void double_click(const QPoint& point);

    void press(Key key);
    /// Types letters of ASCII.
    void type(std::string_view text);

  private:
    struct KeysFreed {
        void operator()(xcb_key_symbols_t* keys) const { xcb_key_symbols_free(keys); }
    };

    void strike(xcb_keysym_t symbol);
    /// Throws where the keyboard has no such key.
    xcb_keycode_t key_of(xcb_keysym_t symbol) const;

    std::unique_ptr<xcb_key_symbols_t, KeysFreed> keys_;
};

} // namespace lookfar::driven
