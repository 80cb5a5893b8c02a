#pragma once

#include "runtime/platform.h"

namespace lookfar {

/// The screen's bits per pixel.
inline short ScreenColourDepth(const Platform& platform) {
    return platform.screen().bits_per_pixel;
}

} // namespace lookfar
