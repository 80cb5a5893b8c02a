#pragma once

#include "runtime/controls/lists.h"
#include "runtime/desktop/native_control.h"

namespace lookfar::desktop {

NativeControl make_combo_box(ComboBox& control, Windows& windows, QWidget& window);
NativeControl make_list_box(ListBox& control, Windows& windows, QWidget& window);

} // namespace lookfar::desktop
