#pragma once

#include <cstdint>

namespace lookfar::decoder {

/// Decodes a tiny picture of each format, so that all libraries, plugins and tables that decoding
/// needs are loaded. Gives a bit for each of `picture_formats` that can be read, the lowest for the
/// first one.
std::uint32_t warm_up();

} // namespace lookfar::decoder
