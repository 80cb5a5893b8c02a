#pragma once

#include <cstdint>
#include <span>

namespace lookfar::resources {

// The picture files that the program carries, byte for byte. The bytes live as long as the program.

/// The program's icon as a PNG file with transparency, so many pixels wide and high: 16, 22, 24,
/// 32, 48, 64, 128 or 256. Any other size throws std::out_of_range.
std::span<const std::uint8_t> icon(int pixels);

/// The television test card, a baseline JPEG file of 540 by 405 pixels.
std::span<const std::uint8_t> test_card();

/// The splash picture, a PNG file of 320 by 240 pixels with 24 bits each.
std::span<const std::uint8_t> splash();

} // namespace lookfar::resources
