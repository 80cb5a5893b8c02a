#pragma once

#include "runtime/pictures/picture_decoder.h"

#include <cstdint>
#include <span>

namespace lookfar {

/// Decodes pictures (JPEG and GIF at least) by their content, into memory of the allocator's, and
/// lays them as their orientation mark says. What stands behind a picture's end is ignored; of an
/// animation only the first frame is decoded. May be called on any thread.
///
/// Throws a `Failure` of the kind `unknown_picture_format` for bytes that begin as no picture, and
/// of the kind `invalid_picture` for a picture that ends too early or finds too little memory, and,
/// before any pixel is allocated, for one that costs more than the limits allow.
Pixels decode_pixels(std::span<const std::uint8_t> bytes,
                     const PixelAllocator& allocate = allocate_pixels);

/// The same, with the failure as a result.
DecodedPicture decoded_picture(std::span<const std::uint8_t> bytes,
                               const PixelAllocator& allocate = allocate_pixels);

} // namespace lookfar
