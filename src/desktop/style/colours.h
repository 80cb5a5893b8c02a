#pragma once

#include "runtime/look.h"

#include <QColor>

class QPalette;

namespace lookfar::desktop {

/// The colour on the screen; a system colour is looked up in the palette.
QColor screen_colour(Colour value, const QPalette& palette);

} // namespace lookfar::desktop
