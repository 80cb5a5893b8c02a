#pragma once

#include "runtime/look.h"

#include <QAccessible>

#include <optional>
#include <string>

namespace lookfar {
class Control;
}

namespace lookfar::desktop {

/// What assistive technology reads of a label or a picture that a window draws itself.
struct ReadableControl {
    QAccessible::Role role = QAccessible::StaticText;
    std::string name = {};
    Announcement announcement = Announcement::none;
};

/// Nothing for any other control, for one that is never shown, and for a button or a link, which is
/// read by the widget at which the keyboard stops.
std::optional<ReadableControl> readable_control(const Control& control);

} // namespace lookfar::desktop
