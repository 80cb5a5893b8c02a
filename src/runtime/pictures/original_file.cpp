#include "runtime/pictures/original_file.h"

#include "runtime/pictures/picture_formats.h"
#include "runtime/text.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>

namespace lookfar {

namespace {

std::string extension_of(std::span<const std::uint8_t> bytes) {
    const std::string format(format_of(bytes));
    if (format.empty())
        return {};
    return "." + (format == "jpeg" ? "jpg" : format);
}

bool is_special(char character) {
    constexpr std::string_view special = "/\\:*?\"<>|\x7F";
    const bool is_control = character >= '\0' && character < ' ';
    return is_control || special.find(character) != std::string_view::npos;
}

/// Cuts a text of UTF-8 between two characters.
void shorten(std::string& text, std::size_t max_bytes) {
    if (text.size() <= max_bytes)
        return;
    const auto goes_on = [](char byte) {
        return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
    };
    while (goes_on(text[max_bytes]))
        --max_bytes;
    text.resize(max_bytes);
}

std::string title_in_name(std::string_view title) {
    constexpr std::size_t max_bytes = 220;
    std::string name = as_utf8(title);
    shorten(name, max_bytes);
    std::ranges::replace_if(name, is_special, '_');
    // A name that begins with a dot is one of a hidden file.
    if (name.empty() || name.front() == '.')
        name.replace(0, 1, "_");
    return name;
}

std::string time_in_name(std::chrono::local_seconds time) {
    const auto day = std::chrono::floor<std::chrono::days>(time);
    const std::chrono::year_month_day date(day);
    const std::chrono::hh_mm_ss clock(time - day);
    std::array<char, 64> text{};
    const int length = std::snprintf(
        text.data(), text.size(), " %04d-%02u-%02u %02d.%02d.%02d", static_cast<int>(date.year()),
        static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
        static_cast<int>(clock.hours().count()), static_cast<int>(clock.minutes().count()),
        static_cast<int>(clock.seconds().count()));
    return {text.data(), static_cast<std::size_t>(length)};
}

} // namespace

std::string original_file_name(std::string_view title, std::chrono::local_seconds time,
                               std::span<const std::uint8_t> bytes) {
    return title_in_name(title) + time_in_name(time) + extension_of(bytes);
}

} // namespace lookfar
