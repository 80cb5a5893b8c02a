#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace lookfar {

bool starts_png(std::span<const std::uint8_t> bytes);

/// The PNG file, which starts as one, without its texts, which nothing here shows. A decoder would
/// inflate all of them, and some hundred kilobytes of compressed texts can hold gigabytes.
std::vector<std::uint8_t> without_png_texts(std::span<const std::uint8_t> bytes);

} // namespace lookfar
