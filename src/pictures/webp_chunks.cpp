#include "pictures/webp_chunks.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace lookfar {

namespace {

constexpr std::size_t type_size = 4;
/// Type and length.
constexpr std::size_t head_size = 8;

/// The length in the head that the bytes start with; the lowest byte goes first.
std::size_t content_length(std::span<const std::uint8_t> bytes) {
    std::size_t length = 0;
    for (std::size_t place = head_size; place-- > type_size;)
        length = length << 8U | bytes[place];
    return length;
}

bool is_exif(std::span<const std::uint8_t> chunk) {
    return std::ranges::equal(chunk.first(type_size), std::string_view("EXIF"));
}

} // namespace

bool is_cut_short_webp(std::span<const std::uint8_t> bytes) {
    return bytes.size() < head_size || content_length(bytes) > bytes.size() - head_size;
}

std::span<const std::uint8_t> exif_in_webp(std::span<const std::uint8_t> bytes) {
    auto rest = bytes.subspan(head_size + type_size);
    while (rest.size() >= head_size) {
        const std::size_t length = std::min(content_length(rest), rest.size() - head_size);
        if (is_exif(rest))
            return rest.subspan(head_size, length);
        // Behind a chunk of an odd length stands a byte of padding.
        rest = rest.subspan(std::min(head_size + length + length % 2, rest.size()));
    }
    return {};
}

} // namespace lookfar
