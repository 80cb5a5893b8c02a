#include "runtime/text.h"

#include <array>
#include <cstdint>
#include <optional>

namespace lookfar {

namespace {

/// The code points of the bytes 80 to 9F; the five unassigned ones stand for themselves.
constexpr std::array<char16_t, 32> windows_1252_upper_controls{
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

std::uint8_t byte_at(std::string_view bytes, std::size_t index) {
    return static_cast<std::uint8_t>(bytes[index]);
}

char32_t from_windows_1252(std::uint8_t byte) {
    if (byte >= 0x80 && byte <= 0x9F)
        return windows_1252_upper_controls[byte - 0x80U];
    return byte;
}

std::size_t sequence_length(std::uint8_t lead) {
    if (lead < 0x80)
        return 1;
    if (lead >= 0xC2 && lead <= 0xDF)
        return 2;
    if (lead >= 0xE0 && lead <= 0xEF)
        return 3;
    if (lead >= 0xF0 && lead <= 0xF4)
        return 4;
    return 0;
}

bool is_shortest_scalar(char32_t point, std::size_t length) {
    constexpr std::array<char32_t, 5> smallest{0, 0, 0x80, 0x800, 0x10000};
    const bool is_surrogate = point >= 0xD800 && point <= 0xDFFF;
    return point >= smallest[length] && point <= 0x10FFFF && !is_surrogate;
}

/// The code point that starts at `start`, whose length is added to it; nothing where the bytes
/// are no UTF-8.
std::optional<char32_t> read_code_point(std::string_view bytes, std::size_t& start) {
    const std::uint8_t lead = byte_at(bytes, start);
    const std::size_t length = sequence_length(lead);
    if (length == 0 || start + length > bytes.size())
        return std::nullopt;
    char32_t point = length == 1 ? lead : lead & (0x7FU >> length);
    for (std::size_t index = start + 1; index < start + length; ++index) {
        const std::uint8_t next = byte_at(bytes, index);
        if ((next & 0xC0U) != 0x80U)
            return std::nullopt;
        point = point << 6U | (next & 0x3FU);
    }
    start += length;
    return is_shortest_scalar(point, length) ? std::optional(point) : std::nullopt;
}

std::optional<std::u32string> from_utf8(std::string_view bytes) {
    std::u32string points;
    points.reserve(bytes.size());
    for (std::size_t index = 0; index < bytes.size();) {
        const auto point = read_code_point(bytes, index);
        if (!point)
            return std::nullopt;
        points.push_back(*point);
    }
    return points;
}

void append_utf8(std::string& text, char32_t point) {
    const auto tail = [&](unsigned shift) {
        text.push_back(static_cast<char>(0x80U | ((point >> shift) & 0x3FU)));
    };
    if (point < 0x80) {
        text.push_back(static_cast<char>(point));
    } else if (point < 0x800) {
        text.push_back(static_cast<char>(0xC0U | point >> 6U));
        tail(0);
    } else {
        text.push_back(static_cast<char>(0xE0U | point >> 12U));
        tail(6);
        tail(0);
    }
}

char32_t fold(char32_t point) {
    const auto lies_in = [point](char32_t first, char32_t last) {
        return point >= first && point <= last;
    };
    if (lies_in(U'A', U'Z') || (lies_in(0xC0, 0xDE) && point != 0xD7))
        return point + 0x20;
    if (lies_in(0x100, 0x137) || lies_in(0x14A, 0x177))
        return point | 1U;
    if (lies_in(0x139, 0x148) || lies_in(0x179, 0x17E))
        return point + (point & 1U);
    if (lies_in(0x391, 0x3A9) || lies_in(0x410, 0x42F))
        return point + 0x20;
    if (lies_in(0x400, 0x40F))
        return point + 0x50;
    return point;
}

std::u32string as_code_points(std::string_view bytes) {
    if (auto points = from_utf8(bytes))
        return *std::move(points);
    std::u32string points;
    points.reserve(bytes.size());
    for (const char byte : bytes)
        points.push_back(from_windows_1252(static_cast<std::uint8_t>(byte)));
    return points;
}

} // namespace

std::string as_utf8(std::string_view bytes) {
    if (from_utf8(bytes))
        return std::string(bytes);
    std::string text;
    for (const char32_t point : as_code_points(bytes))
        append_utf8(text, point);
    return text;
}

std::u32string caseless_key(std::string_view bytes) {
    std::u32string key = as_code_points(bytes);
    for (char32_t& point : key)
        point = fold(point);
    return key;
}

} // namespace lookfar
