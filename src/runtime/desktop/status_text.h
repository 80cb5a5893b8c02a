#pragma once

#include "runtime/controls/bars.h"
#include "runtime/desktop/native_control.h"

namespace lookfar::desktop {

/// A text in a sunken bar, cut at its width with an ellipsis; the tooltip has the whole text.
NativeControl make_status_text(StatusBar& control, QWidget& window);

} // namespace lookfar::desktop
