#pragma once

#include "desktop/driven/x_connection.h"

#include <QPoint>
#include <QString>
#include <xcb/xcb_keysyms.h>

#include <memory>

namespace lookfar::driven {

enum class MouseButton : std::uint8_t { left = 1, right = 3 };

/// The keys that write nothing.
enum class Key : xcb_keysym_t {
    tab = 0xff09,
    enter = 0xff0d,
    escape = 0xff1b,
    home = 0xff50,
    up = 0xff52,
    down = 0xff54,
    end = 0xff57,
    menu = 0xff67
};

/// The user's hands on mouse and keyboard. What they do goes to whatever window lies under the
/// pointer or has the keyboard, as with any user.
class Hands {
  public:
    /// Gives the keyboard a key for each of the letters that it lacks. Programs are to be started
    /// after that.
    Hands(const XConnection& x, const QString& letters);

    void point_at(const QPoint& point);
    void click(const QPoint& point, MouseButton button = MouseButton::left);
    void double_click(const QPoint& point);

    void press(Key key);
    void press_with_shift(Key key);
    void type(const QString& text);

  private:
    struct KeysFreed {
        void operator()(xcb_key_symbols_t* keys) const { xcb_key_symbols_free(keys); }
    };

    void give_key_to(xcb_keysym_t symbol);
    void strike(xcb_keysym_t symbol);
    void strike(xcb_keycode_t key, bool is_shifted);
    xcb_keycode_t key_of(xcb_keysym_t symbol) const;
    xcb_keycode_t known_key_of(xcb_keysym_t symbol) const;
    void fake(std::uint8_t type, std::uint8_t detail, const QPoint& point = {}) const;
    void press_and_release(MouseButton button) const;

    const XConnection& x_;
    std::unique_ptr<xcb_key_symbols_t, KeysFreed> keys_;
};

} // namespace lookfar::driven
