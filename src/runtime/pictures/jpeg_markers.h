#pragma once

#include <cstdint>
#include <span>

namespace lookfar {

/// Whether the bytes are a JPEG picture that breaks off before its end marker. Decoders make up the
/// part that is missing and report no failure.
bool is_cut_short_jpeg(std::span<const std::uint8_t> bytes);

/// Throws a `Failure` for such a picture.
void refuse_cut_short_jpeg(std::span<const std::uint8_t> bytes);

/// The most scans that a JPEG may be stored in. Ten are usual for a picture that comes clearer
/// step by step.
inline constexpr int most_jpeg_scans = 100;

/// Whether the bytes are a JPEG of more than `most_jpeg_scans` scans. A scan of a few bytes costs
/// decoders a walk over the whole picture, so a small file could hold them up for hours.
bool has_too_many_scans(std::span<const std::uint8_t> bytes);

} // namespace lookfar
