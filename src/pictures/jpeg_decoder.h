#pragma once

#include "runtime/pictures/picture.h"

#include <cstdint>
#include <optional>
#include <span>

namespace lookfar {

/// Decodes a JPEG straight to three bytes a pixel, as it is stored: an orientation mark is not
/// looked at. Gives nothing for bytes that can't be turned into red, green and blue that way, such
/// as a picture of four inks.
///
/// Throws a `Failure` for a picture that ends too early or can't be decoded. Its size and its scans
/// are the caller's to check before, since they say what memory and time it takes.
std::optional<Pixels> decode_jpeg(std::span<const std::uint8_t> bytes, const PixelMemory& memory);

} // namespace lookfar
