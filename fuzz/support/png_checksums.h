#pragma once

#include <cstdint>
#include <span>

namespace lookfar::fuzz {

/// Gives every whole chunk of a PNG its right checksum. A decoder would refuse a changed chunk at
/// its checksum, and never look into it.
void repair_png_checksums(std::span<std::uint8_t> png);

} // namespace lookfar::fuzz
