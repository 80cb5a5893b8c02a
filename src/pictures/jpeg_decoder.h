#pragma once

#include "runtime/pictures/picture.h"

#include <cstdint>
#include <optional>
#include <span>

namespace lookfar {

// The bytes must start as a JPEG.

/// Whether it breaks off before its end marker. Decoders make up the part that is missing and
/// report no failure.
bool is_cut_short_jpeg(std::span<const std::uint8_t> bytes);

/// The scans that it is stored in: one, or about ten for a picture that comes clearer step by step.
int count_jpeg_scans(std::span<const std::uint8_t> bytes);

/// Decodes it straight to three bytes a pixel, as it is stored: an orientation mark is not looked
/// at. Gives nothing for a picture that can't be turned into red, green and blue that way, such as
/// one of four inks.
///
/// Throws a `Failure` for a picture that ends too early or can't be decoded. Its size and its scans
/// are the caller's to check before, since they say what memory and time it costs.
std::optional<Pixels> decode_jpeg(std::span<const std::uint8_t> bytes,
                                  const PixelAllocator& allocate);

} // namespace lookfar
