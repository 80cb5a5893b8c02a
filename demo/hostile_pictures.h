#pragma once

#include "demo/http.h"

#include <QSize>

namespace lookfar::demo {

/// A good JPEG picture of 160 x 120 pixels.
Answer small_picture();

/// A JPEG whose header claims 60000 x 60000 pixels.
Answer huge_picture();

/// A JPEG that ends half-way, with a Content-Length that fits.
Answer truncated_picture();

/// A JPEG of one colour.
Answer plain_picture(QSize size);

/// The small picture behind ten megabytes of metadata.
Answer picture_with_large_metadata();

/// A JPEG of 160 x 120 pixels that comes clearer step by step, in ten thousand steps.
Answer picture_of_many_scans();

/// A GIF of 160 x 120 pixels and 10,000 frames, all alike.
Answer long_animation();

/// A hundred kilobytes, announced as deflated, that inflate to eighty megabytes.
Answer deflate_bomb();

/// A true PNG of 20,000 x 20,000 black pixels in some fifty kilobytes.
Answer pixel_bomb();

/// A good PNG picture of 160 x 120 pixels with half a megabyte of compressed texts that inflate to
/// half a gigabyte.
Answer text_bomb();

} // namespace lookfar::demo
