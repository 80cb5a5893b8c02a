#pragma once

#include <cstdint>
#include <span>

namespace lookfar {

/// Whether the bytes start a JPEG picture and don't hold it up to its end marker. Decoders fill
/// up such a picture and call it whole.
bool is_cut_short_jpeg(std::span<const std::uint8_t> bytes);

} // namespace lookfar
