#pragma once

#include "desktop/native/native_control.h"
#include "runtime/controls/lists.h"

namespace lookfar::desktop {

NativeControl make_combo_box(ComboBox& control, UserActions& actions, QWidget& window);
NativeControl make_list_box(ListBox& control, UserActions& actions, QWidget& window);

} // namespace lookfar::desktop
