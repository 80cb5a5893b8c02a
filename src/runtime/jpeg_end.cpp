#include "runtime/jpeg_end.h"

#include <cstddef>
#include <cstring>

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

/// The place of the next marker's prefix, or the end of the bytes. Within the compressed data
/// only a prefix tells anything, and few bytes are one: the standard search leaps over the rest.
std::size_t next_prefix(std::span<const std::uint8_t> bytes, std::size_t from) {
    const void* const found = std::memchr(bytes.data() + from, marker_prefix, bytes.size() - from);
    return found ? static_cast<std::size_t>(static_cast<const std::uint8_t*>(found) - bytes.data())
                 : bytes.size();
}

bool has_end_marker(std::span<const std::uint8_t> bytes) {
    std::size_t position = 0;
    while (position < bytes.size()) {
        position = next_prefix(bytes, position) + 1;
        if (position >= bytes.size())
            return false;
        const std::uint8_t marker = bytes[position];
        if (marker == end_of_image)
            return true;
        // A prefix may be repeated before its marker.
        if (marker == marker_prefix)
            continue;
        ++position;
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
