#pragma once

#include "runtime/failure.h"
#include "runtime/pictures/picture.h"

#include <cstdint>
#include <span>

namespace lookfar {

/// What the decoding of a camera's picture may cost at most, beside its `max_pixels`. A JPEG is
/// walked through whole for each of the scans that it is stored in.
inline constexpr long long max_bytes_while_decoding = 400'000'000;
inline constexpr int max_scans = 100;
inline constexpr long long max_pixels_in_all_scans = 10 * max_pixels;

// Each of these throws a `Failure` for a picture that is over its limit.

void refuse_large(int width, int height);
/// For a decoding that needs so many bytes for each pixel.
void refuse_hungry(int width, int height, int bytes_for_each_pixel);
void refuse_many_scans(std::span<const std::uint8_t> jpeg, int width, int height);

// The failures of pictures, of whatever format. They say the same with every version of a library.

/// It ends too early.
Failure picture_cut_short();
/// Its format is known, but it is damaged, or makes use of what no decoder here knows, such as
/// twelve bits a colour.
Failure picture_not_decodable();

} // namespace lookfar
