#pragma once

#include "runtime/picture.h"

namespace lookfar {

/// The program's icon as a picture, with its opacity.
PictureReference program_icon(int pixels);

} // namespace lookfar
