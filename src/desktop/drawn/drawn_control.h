#pragma once

#include "runtime/controls/control.h"
#include "runtime/pictures/picture.h"

#include <QRectF>

#include <optional>
#include <string>

namespace lookfar::desktop {

/// What a window must know of a control that it draws itself.
struct DrawnControl {
    enum class Role { decoration, text, picture };

    /// Whether assistive technology reads the control as part of the window.
    bool is_readable() const { return role != Role::decoration; }

    Control* control = nullptr;
    Role role = Role::decoration;
    /// In logical pixels from the window's top left corner.
    QRectF area = {};
    /// Null for a control that takes no mouse events.
    MouseEvents* mouse = nullptr;
    PictureReference picture = {};
    std::string tool_tip = {};
    /// What assistive technology calls the control.
    std::string name = {};
    Announcement announcement = Announcement::none;
};

/// Nothing for a control that is a native widget.
std::optional<DrawnControl> drawn_control(Control& control);

} // namespace lookfar::desktop
