#pragma once

#include "runtime/controls/buttons.h"
#include "runtime/desktop/native_control.h"

namespace lookfar::desktop {

NativeControl make_command_button(CommandButton& control, Windows& windows, QWidget& window);
NativeControl make_check_box(CheckBox& control, Windows& windows, QWidget& window);

} // namespace lookfar::desktop
