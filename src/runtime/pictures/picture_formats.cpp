#include "runtime/pictures/picture_formats.h"

#include <algorithm>

namespace lookfar {

namespace {

/// What the files of a format begin with.
struct Beginning {
    std::string_view format;
    std::string_view bytes;
    /// What stands behind them, after the file's length.
    std::string_view behind_length = {};
};

constexpr std::array beginnings{
    Beginning{"jpeg", "\xFF\xD8"}, Beginning{"gif", "GIF87a"},
    Beginning{"gif", "GIF89a"},    Beginning{"png", "\x89PNG\r\n\x1A\n"},
    Beginning{"bmp", "BM"},        Beginning{"webp", "RIFF", "WEBP"},
};

bool has(std::string_view file, const Beginning& beginning) {
    constexpr std::size_t length_size = 4;
    const std::size_t behind_length = beginning.bytes.size() + length_size;
    return file.starts_with(beginning.bytes) &&
           (beginning.behind_length.empty() ||
            file.substr(0, behind_length + beginning.behind_length.size())
                .ends_with(beginning.behind_length));
}

} // namespace

std::string_view format_of(std::span<const std::uint8_t> bytes) {
    const std::string_view file(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    const auto found = std::ranges::find_if(
        beginnings, [file](const Beginning& beginning) { return has(file, beginning); });
    return found == beginnings.end() ? std::string_view() : found->format;
}

} // namespace lookfar
