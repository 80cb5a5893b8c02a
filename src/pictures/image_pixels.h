#pragma once

#include "runtime/pictures/picture.h"

#include <cstdint>
#include <span>

class QImage;

namespace lookfar {

/// The pixels of an image; its opacity, where it has any, lies behind the rows in the same memory.
/// Throws a `Failure` or std::bad_alloc where there is too little of that, and for an image that is
/// null, as Qt's functions give one where they find too little.
Pixels pixels_of(const QImage& image, const PixelAllocator& allocate);

/// The image in a PNG file that the program itself carries. Qt reads these without a plugin. Null
/// where the file is damaged.
QImage png_image(std::span<const std::uint8_t> file);

} // namespace lookfar
