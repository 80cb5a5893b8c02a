#pragma once

#include "runtime/pictures/picture.h"

#include <cstdint>
#include <span>
#include <string>

namespace lookfar {

/// The largest picture that is decoded, in pixels.
inline constexpr long long largest_picture = 64LL * 1024 * 1024;

/// Decodes pictures (JPEG and GIF at least) by their content, into bytes from the memory, and lays
/// them as their orientation mark says. What follows a picture's end is ignored; of an animation
/// the first frame is taken. May be called on any thread.
///
/// Throws a `Failure` for bytes that are no picture, for one that ends too early, is stored in too
/// many scans or finds too little memory, and, before any pixel is allocated, for one of more than
/// `largest_picture` pixels.
Pixels decode_pixels(std::span<const std::uint8_t> bytes, const PixelMemory& memory = {});

/// Whether the bytes begin as a picture that is read, whatever is wrong with it further on.
bool is_in_readable_format(std::span<const std::uint8_t> bytes);

/// The media types of the pictures that are read, with commas between them.
std::string readable_media_types();

} // namespace lookfar
