#include "fuzz/support/png_checksums.h"

#include <cstddef>

namespace lookfar::fuzz {

namespace {

constexpr std::size_t signature_size = 8;
constexpr std::size_t word_size = 4;

std::size_t read_word(std::span<const std::uint8_t> bytes) {
    return std::size_t{bytes[0]} << 24U | std::size_t{bytes[1]} << 16U |
           std::size_t{bytes[2]} << 8U | bytes[3];
}

void write_word(std::span<std::uint8_t> bytes, std::uint32_t word) {
    for (std::size_t index = 0; index < word_size; ++index)
        bytes[index] = static_cast<std::uint8_t>(word >> (24U - 8U * index));
}

std::uint32_t checksum_of(std::span<const std::uint8_t> bytes) {
    constexpr std::uint32_t polynomial = 0xEDB88320U;
    std::uint32_t sum = 0xFFFFFFFFU;
    for (const std::uint8_t byte : bytes) {
        sum ^= byte;
        for (int bit = 0; bit < 8; ++bit)
            sum = sum >> 1U ^ (sum & 1U ? polynomial : 0U);
    }
    return ~sum;
}

} // namespace

void repair_png_checksums(std::span<std::uint8_t> png) {
    auto rest = png.subspan(signature_size);
    while (rest.size() >= 3 * word_size && rest.size() - 3 * word_size >= read_word(rest)) {
        const std::size_t length = read_word(rest);
        write_word(rest.subspan(2 * word_size + length),
                   checksum_of(rest.subspan(word_size, word_size + length)));
        rest = rest.subspan(3 * word_size + length);
    }
}

} // namespace lookfar::fuzz
