#pragma once

#include "demo/stage.h"

namespace lookfar::demo {

/// Paints the sky of the hour down to the horizon: its colours, stars, sun or moon, and clouds
/// that drift from frame to frame.
void paint_sky(Stage& stage, double horizon);

} // namespace lookfar::demo
