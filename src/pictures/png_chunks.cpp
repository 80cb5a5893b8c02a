#include "pictures/png_chunks.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

namespace lookfar {

namespace {

constexpr std::array<std::uint8_t, 8> signature{0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
constexpr std::size_t length_size = 4;
constexpr std::size_t head_size = length_size + 4;
constexpr std::size_t checksum_size = 4;

std::size_t content_length(std::span<const std::uint8_t> chunk) {
    std::size_t length = 0;
    for (const std::uint8_t byte : chunk.first(length_size))
        length = length << 8U | byte;
    return length;
}

bool is_of_type(std::span<const std::uint8_t> chunk, std::string_view name) {
    return chunk.size() >= head_size &&
           std::ranges::equal(chunk.subspan(length_size, name.size()), name);
}

bool is_text(std::span<const std::uint8_t> chunk) {
    return is_of_type(chunk, "tEXt") || is_of_type(chunk, "zTXt") || is_of_type(chunk, "iTXt");
}

/// The chunk that the bytes start with, or all of them where they end too early.
std::span<const std::uint8_t> first_chunk(std::span<const std::uint8_t> bytes) {
    constexpr std::size_t around_content = head_size + checksum_size;
    if (bytes.size() < around_content)
        return bytes;
    return bytes.first(std::min(bytes.size(), content_length(bytes) + around_content));
}

} // namespace

std::vector<std::uint8_t> without_png_texts(std::span<const std::uint8_t> bytes) {
    std::vector<std::uint8_t> kept(signature.begin(), signature.end());
    kept.reserve(bytes.size());
    auto rest = bytes.subspan(signature.size());
    while (!rest.empty()) {
        const auto chunk = first_chunk(rest);
        if (!is_text(chunk))
            kept.insert(kept.end(), chunk.begin(), chunk.end());
        rest = rest.subspan(chunk.size());
    }
    return kept;
}

std::span<const std::uint8_t> exif_in_png(std::span<const std::uint8_t> bytes) {
    auto rest = bytes.subspan(signature.size());
    while (!rest.empty()) {
        const auto chunk = first_chunk(rest);
        if (is_of_type(chunk, "eXIf"))
            return chunk.subspan(head_size,
                                 std::min(content_length(chunk), chunk.size() - head_size));
        rest = rest.subspan(chunk.size());
    }
    return {};
}

} // namespace lookfar
