#pragma once

#include "pictures/decode_pixels.h"
#include "runtime/bytes.h"

#include <cstdint>

class QImage;

namespace lookfar::testing {

/// A picture file of these pixels, in a format of Qt's writers such as "jpg" or "png".
Bytes encode(const QImage& image, const char* format);

/// A picture file of one colour (0xRRGGBB).
Bytes picture_file(int width, int height, std::uint32_t colour = 0x336699,
                   const char* format = "jpg");

/// A PNG of one colour, of four channels with two bytes each.
Bytes deep_png(int width, int height);

/// A black picture with eight white pixels each way in its top left corner.
Bytes picture_with_white_corner(int width, int height, const char* format = "jpg");

/// A JPEG full of detail, as large as a camera's; another seed gives another one.
Bytes detailed_jpeg(int width, int height, std::uint32_t seed = 1);

} // namespace lookfar::testing
