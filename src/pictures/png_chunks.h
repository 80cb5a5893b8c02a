#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace lookfar {

bool starts_png(std::span<const std::uint8_t> bytes);

/// A PNG file without its text chunks; the bytes must start with the PNG signature. Nothing here
/// shows the texts, and a decoder would inflate them all: some hundred kilobytes of compressed
/// text can hold gigabytes.
std::vector<std::uint8_t> without_png_texts(std::span<const std::uint8_t> bytes);

/// The content of the first EXIF chunk of a PNG file; empty where it has none. The bytes must start
/// with the PNG signature.
std::span<const std::uint8_t> exif_in_png(std::span<const std::uint8_t> bytes);

} // namespace lookfar
