#include "resources/resources.h"

#include "resources/icon_table.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>
#include <string>

namespace lookfar::resources {

std::vector<std::span<const std::uint8_t>> icons() {
    std::vector<std::span<const std::uint8_t>> files;
    std::ranges::transform(icon_table(), std::back_inserter(files), &Icon::file);
    return files;
}

std::span<const std::uint8_t> icon(int pixels) {
    const std::vector<Icon> icons = icon_table();
    const auto icon = std::ranges::find(icons, pixels, &Icon::pixels);
    if (icon == icons.end())
        throw std::out_of_range("There is no icon of " + std::to_string(pixels) + " pixels.");
    return icon->file;
}

} // namespace lookfar::resources
