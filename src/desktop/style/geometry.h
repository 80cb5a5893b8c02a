#pragma once

#include "runtime/look.h"

#include <QRect>
#include <QRectF>

namespace lookfar::desktop {

/// Logical pixels, exact.
double to_pixels(float twips);
float to_twips(int pixels);

/// The nearest whole pixel.
int to_whole_pixels(float twips);

Qt::Alignment horizontal_alignment(Alignment alignment);

/// A rectangle in logical pixels, exact.
QRectF exact_rectangle(const Bounds& bounds);
/// The same with every edge on the nearest whole pixel.
QRect pixel_rectangle(const Bounds& bounds);
/// The rectangle whose outline, one pixel thick, ends at the edges of the box.
QRect outline_of(const QRect& box);

} // namespace lookfar::desktop
