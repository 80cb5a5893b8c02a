#pragma once

#include "runtime/pictures/picture.h"

#include <QImage>
#include <QSize>

namespace lookfar::desktop {

/// The largest factor by which both sides of the picture can be divided without a rest while it
/// stays as large as the size at least; one where there is none, and for an empty size.
int reduction_for(const Picture& picture, const QSize& size);

/// The picture's own bytes, not copied; they must outlive the image. The opacity is not looked at.
QImage wrapped(const Picture& picture);

/// Gives the image the picture with its sides divided by such a factor: each pixel is the average
/// of a square of the picture's. The opacity is not looked at. An image of that size and of four
/// bytes a pixel keeps its memory.
void reduce(const Picture& picture, int factor, QImage& image);

} // namespace lookfar::desktop
