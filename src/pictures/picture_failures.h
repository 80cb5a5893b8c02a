#pragma once

#include "runtime/failure.h"

namespace lookfar {

// The failures of pictures, of whatever format. They say the same with every version of a library.

/// It ends too early.
Failure picture_cut_short();
/// Its format is known, but it is damaged, or makes use of what no decoder here knows, such as
/// twelve bits a colour.
Failure picture_not_decodable();

} // namespace lookfar
