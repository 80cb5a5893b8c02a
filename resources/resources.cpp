#include "resources/resources.h"

#include "resources/embedded.h"

#include <stdexcept>
#include <string>

namespace lookfar::resources {

std::span<const std::uint8_t> icon(int pixels) {
    switch (pixels) {
    case 16:
        return icon_16();
    case 22:
        return icon_22();
    case 24:
        return icon_24();
    case 32:
        return icon_32();
    case 48:
        return icon_48();
    case 64:
        return icon_64();
    case 128:
        return icon_128();
    case 256:
        return icon_256();
    default:
        throw std::out_of_range("There is no icon of " + std::to_string(pixels) + " pixels.");
    }
}

} // namespace lookfar::resources
