#pragma once

#include "desktop/native/tied_widget.h"

#include <functional>
#include <optional>

namespace lookfar {
class Control;
}

namespace lookfar::desktop {

class UserActions;

/// The native widget of a control.
struct NativeControl {
    TiedWidget<QWidget> widget;
    /// Gives the widget what the control says; does nothing where they agree.
    std::function<void()> synchronise;
    /// The control's place in the tab order.
    int tab_index = 0;
};

/// Makes the native widget of a control, as a child of the window; nothing for a control that
/// the window draws itself and the keyboard does not stop at.
std::optional<NativeControl> make_native_control(Control& control, UserActions& actions,
                                                 QWidget& window);

} // namespace lookfar::desktop
