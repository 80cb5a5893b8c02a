#pragma once

#include "runtime/look.h"

#include <optional>
#include <string>

namespace lookfar {

class Control;
class Element;
class Form;
class MenuItem;
class PopupMenu;

/// The size in twips of the screen on which the main window stands, and its colour depth in bits
/// per pixel. Before the main window stands anywhere it is the desktop's primary screen.
struct ScreenMetrics {
    Size size;
    short bits_per_pixel = 32;
};

/// What shows the windows on a screen. It is called on the one thread that runs the handlers, and
/// every call returns at once.
class WindowSystem {
  public:
    virtual ~WindowSystem() = default;

    virtual ScreenMetrics screen_metrics() const = 0;
    /// The room that a text takes, in twips; lines are parted by line feeds, and by wrapping at a
    /// width where one is given.
    virtual Size text_size(const std::string& text, const Font& font,
                           std::optional<float> wrap_width) const = 0;

    /// A property of the element has changed; shown at the next opportunity.
    virtual void changed(Element& element) = 0;
    /// The element is about to be destroyed; nothing may refer to it any more.
    virtual void forget(Element& element) = 0;

    /// Puts a visible window before the others.
    virtual void bring_forward(Form& form) = 0;
    virtual void set_focus(Control& control) = 0;
    /// Shows a text at a control of a visible window until the user presses a key or a mouse
    /// button, in the place of the text that stood there before.
    virtual void show_hint(Control& control, const std::string& text) = 0;
    /// Has a screen reader say a text that a control of a visible window shows, once it has
    /// finished what it is saying.
    virtual void announce(Control& control, const std::string& text) = 0;
    /// Shows a menu at the pointer, or in the middle of the window while the pointer is elsewhere,
    /// the default entry set off.
    virtual void pop_up(Form& form, PopupMenu& menu, const MenuItem* default_entry) = 0;
};

} // namespace lookfar
