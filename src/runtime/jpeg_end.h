#pragma once

#include <cstdint>
#include <span>

namespace lookfar {

/// Whether the bytes, which start with a JPEG picture, hold it up to its end marker. Decoders
/// fill up a picture that was cut short and call it whole.
bool jpeg_is_complete(std::span<const std::uint8_t> bytes);

} // namespace lookfar
