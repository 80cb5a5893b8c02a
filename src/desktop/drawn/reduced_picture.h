#pragma once

#include "runtime/pictures/picture.h"

#include <QImage>
#include <QSize>

namespace lookfar::desktop {

/// The picture's own size, in pixels.
QSize natural_size(const Picture& picture);

/// An image on the picture's own bytes, which must outlive it. The opacity is left out.
QImage wrapped(const Picture& picture);

/// An image of its own, transparent where the picture is.
QImage copied(const Picture& picture);

/// The size, in pixels, to which the picture is reduced on its way to `size`. It is `size` itself
/// where the picture is the same whole number of times as long in both directions, or long enough
/// for squares of whole pixels to make no visible difference. Else it is the picture's own size,
/// divided by the largest whole number that leaves no remainder and enough pixels.
QSize reduced_size(const Picture& picture, const QSize& size);

/// Draws the picture into the image in such a size: each pixel is the average of the whole pixels
/// of the picture that lie where it lies. The opacity is left out. An image that already has the
/// size and four bytes a pixel keeps its memory.
void reduce(const Picture& picture, const QSize& size, QImage& image);

} // namespace lookfar::desktop
