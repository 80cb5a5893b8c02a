#pragma once

#include "desktop/native/native_control.h"
#include "runtime/controls/buttons.h"

namespace lookfar::desktop {

NativeControl make_command_button(CommandButton& control, UserActions& actions, QWidget& window);
NativeControl make_check_box(CheckBox& control, UserActions& actions, QWidget& window);

} // namespace lookfar::desktop
