#pragma once

#include "demo/stage.h"

namespace lookfar::demo {

/// A shape that is the same on both sides of its middle; a triangle where one half is 0.
Shape trapezoid(double middle, double top, double upper_half, double bottom, double lower_half);

/// Windows in rows and columns on a wall; at night some of them are lit, and others some frames
/// later. The seed decides which ones.
void paint_windows(Stage& stage, const QRectF& wall, int columns, int rows, unsigned seed);

/// A boat with mast and sail; the place is where the hull meets the water.
void paint_sailing_boat(Stage& stage, QPointF place, double size, const QColor& hull);

/// A row of hills along the bottom line, fixed by its seed.
void paint_hills(Stage& stage, double bottom, double height, unsigned seed, const QColor& colour);

} // namespace lookfar::demo
