#pragma once

#include <array>
#include <string_view>

namespace lookfar {

/// The formats in which a camera may send its picture, named as in their media types. The last one
/// is read only where Qt's plugin for it is installed.
inline constexpr std::array<std::string_view, 5> picture_formats{"jpeg", "gif", "png", "bmp",
                                                                 "webp"};

} // namespace lookfar
