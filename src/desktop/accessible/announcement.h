#pragma once

#include "runtime/look.h"

class QAccessibleInterface;
class QString;

namespace lookfar::desktop {

/// Has screen readers speak a text that an object on the accessibility bus shows, wherever the
/// keyboard's focus is. Does nothing where no assistive technology runs.
void announce(QAccessibleInterface& object, const QString& text, Announcement announcement);

} // namespace lookfar::desktop
