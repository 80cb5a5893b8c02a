#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace lookfar::resources {

/// The PNG file of one size.
struct Icon {
    int pixels;
    std::span<const std::uint8_t> file;
};

/// Every size of the program's icon. The build generates this function from LOOKFAR_ICON_SIZES.
std::vector<Icon> icon_table();

} // namespace lookfar::resources
