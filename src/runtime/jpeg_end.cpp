#include "runtime/jpeg_end.h"

#include <cstddef>

namespace lookfar {

namespace {

constexpr std::uint8_t marker_prefix = 0xFF;
constexpr std::uint8_t stuffed_zero = 0x00;
constexpr std::uint8_t temporary = 0x01;
constexpr std::uint8_t first_restart = 0xD0;
constexpr std::uint8_t start_of_image = 0xD8;
constexpr std::uint8_t end_of_image = 0xD9;

bool has_no_length(std::uint8_t marker) {
    return marker == stuffed_zero || marker == temporary ||
           (marker >= first_restart && marker <= start_of_image);
}

bool starts_jpeg(std::span<const std::uint8_t> bytes) {
    return bytes.size() >= 2 && bytes[0] == marker_prefix && bytes[1] == start_of_image;
}

bool has_end_marker(std::span<const std::uint8_t> bytes) {
    std::size_t position = 0;
    while (position + 1 < bytes.size()) {
        const std::uint8_t marker = bytes[position + 1];
        // Within the compressed data only the byte behind a prefix tells a marker.
        if (bytes[position] != marker_prefix || marker == marker_prefix) {
            ++position;
            continue;
        }
        if (marker == end_of_image)
            return true;
        position += 2;
        if (has_no_length(marker))
            continue;
        if (position + 1 >= bytes.size())
            return false;
        position += static_cast<std::size_t>(bytes[position]) << 8U | bytes[position + 1];
    }
    return false;
}

} // namespace

bool is_cut_short_jpeg(std::span<const std::uint8_t> bytes) {
    return starts_jpeg(bytes) && !has_end_marker(bytes);
}

} // namespace lookfar
