#pragma once

#include "desktop/native/native_control.h"

#include <QFocusFrame>
#include <QPointer>

#include <unordered_map>

class QPushButton;

namespace lookfar {
class Control;
class Element;
class Form;
} // namespace lookfar

namespace lookfar::desktop {

class UserActions;

/// The native widgets of a window's controls: the children of the window, which one has the
/// keyboard, and which one the Enter key presses.
class NativeChildren {
  public:
    /// Makes the widgets, as children of the window and in the order of their tab indices.
    NativeChildren(const Form& form, UserActions& actions, QWidget& window);

    /// Gives the control's widget what the control says; nothing happens for a control without one.
    void synchronise(const Control& control);
    /// Lets the control's widget go; nothing happens for an element without one.
    void forget(const Element& element) { natives_.erase(&element); }
    /// Lets all widgets go.
    void clear() { natives_.clear(); }

    /// The control's widget; nothing for a control without one.
    QWidget* widget_of(const Control& control) const;

    /// Gives the keyboard to a control, now or when the window comes up.
    void set_focus(const Control& control);
    /// Gives the keyboard to the control that it was set to last, or else to the first one in the
    /// tab order that a click could give it to. To be called when the window comes up, since the
    /// Qt may have moved the keyboard on when the window was hidden.
    void restore_focus();

    /// Presses the button that has the keyboard, or else the default button, if there is one.
    void press_button_by_enter();

  private:
    void make(const Form& form, UserActions& actions);
    void set_tab_order();
    void move_ring(QWidget* widget);
    QPushButton* default_button() const;

    QWidget& window_;
    /// Lies around the widget that has the keyboard.
    QFocusFrame ring_{&window_};
    std::unordered_map<const Element*, NativeControl> natives_;
    QPointer<QWidget> focus_at_show_;
};

} // namespace lookfar::desktop
