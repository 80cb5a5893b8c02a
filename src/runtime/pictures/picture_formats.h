#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace lookfar {

/// Whether pictures of this format are read; formats are named as in their media types.
bool is_picture_format(std::string_view name);

/// Whether the bytes begin as a picture that is read, whatever is wrong with it further on.
bool is_in_readable_format(std::span<const std::uint8_t> bytes);

/// The media types of the pictures that are read, with commas between them.
std::string readable_media_types();

} // namespace lookfar
