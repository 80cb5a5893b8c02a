#pragma once

#include <QImage>

namespace lookfar::resources {

/// Draws the picture that stands in the window until the first camera picture is there.
/// It has 24 bits a pixel, and its rows 170 to 200 are left white for a running text.
QImage draw_splash();

} // namespace lookfar::resources
