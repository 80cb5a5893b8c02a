#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace lookfar {

/// The formats in which a camera may send its picture, named as in their media types. The last one
/// is read only where Qt's plugin for it is installed.
inline constexpr std::array<std::string_view, 5> picture_formats{"jpeg", "gif", "png", "bmp",
                                                                 "webp"};

/// The one of them that the bytes begin as; empty where they begin as none.
std::string_view format_of(std::span<const std::uint8_t> bytes);

} // namespace lookfar
