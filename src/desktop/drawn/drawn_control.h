#pragma once

#include "runtime/controls/control.h"
#include "runtime/pictures/picture.h"

#include <QRectF>

#include <optional>
#include <string_view>

namespace lookfar::desktop {

/// Where a control lies that a window draws itself, and what it does there.
struct DrawnControl {
    /// In logical pixels from the window's top left corner.
    QRectF area = {};
    /// Null for a control that takes no mouse events.
    MouseEvents* mouse = nullptr;
    PictureReference picture = {};
    /// Lasts as long as the control.
    std::string_view tool_tip = {};
};

/// Nothing for a control that is a native widget.
std::optional<DrawnControl> drawn_control(Control& control);

} // namespace lookfar::desktop
