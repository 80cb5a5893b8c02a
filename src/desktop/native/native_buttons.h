#pragma once

#include "desktop/native/native_control.h"
#include "runtime/controls/buttons.h"

namespace lookfar::desktop {

NativeControl make_command_button(CommandButton& control, Windows& windows, QWidget& window);
NativeControl make_check_box(CheckBox& control, Windows& windows, QWidget& window);

} // namespace lookfar::desktop
