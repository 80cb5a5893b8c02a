#pragma once

#include "runtime/pictures/picture.h"

#include <QImage>
#include <QSize>

namespace lookfar::desktop {

/// The largest factor by which both sides of the picture can be divided without a rest while it
/// stays as large as the size at least; one where there is none, and for an empty size.
int reduction_for(const Picture& picture, const QSize& size);

/// The picture with its sides divided by such a factor: each pixel is the average of a square of
/// the picture's. Its opacity is not looked at.
QImage reduced(const Picture& picture, int factor);

} // namespace lookfar::desktop
