#pragma once

#include <cstdint>
#include <span>

namespace lookfar {

// The bytes must start as a WebP file.

/// Whether it breaks off before the end that its header tells. Decoders show the part that is
/// there.
bool is_cut_short_webp(std::span<const std::uint8_t> bytes);

/// The content of its first EXIF chunk; empty where it has none.
std::span<const std::uint8_t> exif_in_webp(std::span<const std::uint8_t> bytes);

} // namespace lookfar
