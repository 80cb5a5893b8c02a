#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace lookfar {

// The bytes must start with the PNG signature.

/// A PNG file without its text chunks. Nothing here shows the texts, and a decoder would inflate
/// them all: some hundred kilobytes of compressed text can hold gigabytes.
std::vector<std::uint8_t> without_png_texts(std::span<const std::uint8_t> bytes);

/// The content of the first EXIF chunk of a PNG file; empty where it has none.
std::span<const std::uint8_t> exif_in_png(std::span<const std::uint8_t> bytes);

} // namespace lookfar
