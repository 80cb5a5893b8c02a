#include "decoder/program/warm_up.h"

#include "pictures/decode_pixels.h"
#include "runtime/pictures/picture_formats.h"

#include <QByteArray>

#include <array>
#include <cstddef>
#include <variant>

namespace lookfar::decoder {

namespace {

/// White pictures of one pixel, in the order of the formats.
constexpr std::array<const char*, picture_formats.size()> tiny_pictures{
    "/9j/4AAQSkZJRgABAQAAAQABAAD/2wBDABALDA4MChAODQ4SERATGCgaGBYWGDEjJR0oOjM9PDkzODdASFxOQERXRTc4"
    "UG1RV19iZ2hnPk1xeXBkeFxlZ2P/wAALCAABAAEBAREA/8QAFAABAAAAAAAAAAAAAAAAAAAAB//EABQQAQAAAAAAAAAA"
    "AAAAAAAAAAD/2gAIAQEAAD8AQH//2Q==",
    "R0lGODlhAQABAPAAAP///wAAACH5BAAAAAAALAAAAAABAAEAAAICRAEAOw==",
    "iVBORw0KGgoAAAANSUhEUgAAAAEAAAABAQAAAAA3bvkkAAAACklEQVQI12NoAAAAggCB3UNq9AAAAABJRU5ErkJggg==",
    "Qk06AAAAAAAAADYAAAAoAAAAAQAAAAEAAAABABgAAAAAAAQAAAAAAAAAAAAAAAAAAAAAAAAA////AA==",
    "UklGRiQAAABXRUJQVlA4IBgAAAAwAQCdASoBAAEAAsBMJaQAA3AA/veMAAA=",
};

bool can_be_read(const char* base64) {
    const QByteArray file = QByteArray::fromBase64(base64);
    return std::holds_alternative<Pixels>(
        decoded_picture({reinterpret_cast<const std::uint8_t*>(file.data()),
                         static_cast<std::size_t>(file.size())}));
}

} // namespace

std::uint32_t warm_up() {
    std::uint32_t formats = 0;
    for (std::size_t index = 0; index < tiny_pictures.size(); ++index)
        if (can_be_read(tiny_pictures[index]))
            formats |= 1U << index;
    return formats;
}

} // namespace lookfar::decoder
