#pragma once

#include "runtime/pictures/picture.h"

#include <QImage>
#include <QSize>

namespace lookfar::desktop {

/// The largest factor that divides both sides of the picture without a remainder and leaves the
/// picture at least as large as `size`; 1 where there is none, and for an empty size.
int reduction_for(const Picture& picture, const QSize& size);

/// An image on the picture's own bytes, which must outlive it. The opacity is left out.
QImage wrapped(const Picture& picture);

/// Draws the picture into the image with both sides divided by such a factor: each pixel is the
/// average of a square of the picture's pixels. The opacity is left out. An image that already has
/// the right size and four bytes a pixel keeps its memory.
void reduce(const Picture& picture, int factor, QImage& image);

} // namespace lookfar::desktop
