#pragma once

#include "runtime/controls/bars.h"
#include "runtime/desktop/native_control.h"

namespace lookfar::desktop {

/// Two small buttons, one above the other, that repeat while they are held. No tab stop.
NativeControl make_up_down_arrows(UpDown& control, Windows& windows, QWidget& window);

} // namespace lookfar::desktop
