#pragma once

#include <cstdint>
#include <span>

namespace lookfar {

/// Whether a GIF breaks off before the end of its first frame's data. Decoders show the part that
/// is there and report no failure. The bytes must start as a GIF.
bool is_cut_short_gif(std::span<const std::uint8_t> bytes);

} // namespace lookfar
