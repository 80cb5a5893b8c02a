#pragma once

#include <cstdint>
#include <span>

namespace lookfar {

/// Whether the bytes are a JPEG picture that breaks off before its end marker. Decoders make up the
/// part that is missing and report no failure.
bool is_cut_short_jpeg(std::span<const std::uint8_t> bytes);

/// Throws a `Failure` for such a picture.
void refuse_cut_short_jpeg(std::span<const std::uint8_t> bytes);

/// The scans that a JPEG is stored in: one, or about ten for a picture that comes clearer step by
/// step. None for other bytes.
int count_jpeg_scans(std::span<const std::uint8_t> bytes);

} // namespace lookfar
