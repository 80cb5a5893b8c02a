#pragma once

#include "demo/http.h"

namespace lookfar::demo {

/// Two megabytes of gzip, announced as a content encoding, that inflate to two gigabytes.
Answer gzip_bomb();

/// A true PNG of 20,000 x 20,000 black pixels in some fifty kilobytes.
Answer pixel_bomb();

/// A good PNG picture of 160 x 120 pixels with half a megabyte of compressed texts that inflate to
/// half a gigabyte.
Answer text_bomb();

} // namespace lookfar::demo
