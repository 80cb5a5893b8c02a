#pragma once

#include <QImage>

namespace lookfar::resources {

/// Draws the television test card, 540 by 405 pixels: a grid with a frame around it, a circle of
/// bars in the middle of it, and a light field across them.
QImage draw_test_card();

} // namespace lookfar::resources
