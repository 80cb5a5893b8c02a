#pragma once

#include <string>
#include <string_view>

namespace lookfar {

/// Whether pictures of this format are read; formats are named as in their media types.
bool is_picture_format(std::string_view name);

/// The media types of the pictures that are read, with commas between them.
std::string readable_media_types();

} // namespace lookfar
