#pragma once

#include "runtime/pictures/picture.h"

namespace lookfar {

// The pictures that the program carries, each a picture object of its own.

/// The program's icon, with its opacity; the sizes are those of `resources::icon`.
PictureReference program_icon(int pixels);

/// The television test card, 540 by 405 pixels.
PictureReference test_card();

/// The splash picture, 320 by 240 pixels.
PictureReference splash_picture();

} // namespace lookfar
