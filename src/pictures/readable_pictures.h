#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace lookfar {

/// Whether pictures of this format are read; formats are named as in their media types.
bool is_picture_format(std::string_view name);

/// The media types of the pictures that are read, with commas between them.
std::string readable_media_types();

/// What a camera's picture may cost at most, so that no small file can claim the whole memory or
/// minutes of work. A JPEG is walked through whole for each of the scans that it is stored in.
inline constexpr long long most_pixels = 40'000'000;
inline constexpr long long most_bytes_while_decoding = 400'000'000;
inline constexpr int most_scans = 100;
inline constexpr long long most_pixels_in_all_scans = 10 * most_pixels;

// Each of these throws a `Failure` for a picture that is over its limit.

void refuse_large(int width, int height);
/// For a decoding that takes so many bytes for each pixel.
void refuse_hungry(int width, int height, int bytes_for_each_pixel);
void refuse_many_scans(std::span<const std::uint8_t> jpeg, int width, int height);

} // namespace lookfar
