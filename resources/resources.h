#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace lookfar::resources {

// The picture files that the program carries, byte for byte. The bytes live as long as the program.

/// The program's icon in every size, from the smallest: square PNG files with transparency.
std::vector<std::span<const std::uint8_t>> icons();

/// The one of `icons` that is so many pixels wide and high. Where there is none, it throws
/// std::out_of_range.
std::span<const std::uint8_t> icon(int pixels);

/// The television test card, a PNG file of 540 by 405 pixels.
std::span<const std::uint8_t> test_card();

/// The splash picture, a PNG file of 320 by 240 pixels with 24 bits each.
std::span<const std::uint8_t> splash();

} // namespace lookfar::resources
