#include "pictures/readable_pictures.h"

#include "pictures/jpeg_decoder.h"
#include "runtime/failure.h"

#include <algorithm>
#include <array>
#include <string>

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

[[noreturn]] void refuse_size(int width, int height) {
    throw Failure(FailureKind::invalid_picture,
                  "The picture is too large: " + std::to_string(width) + " x " +
                      std::to_string(height) + " pixels.");
}

long long pixel_count(int width, int height) {
    return static_cast<long long>(width) * height;
}

} // namespace

std::string_view format_of(std::span<const std::uint8_t> bytes) {
    const std::string_view file(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    const auto found = std::ranges::find_if(
        beginnings, [file](const Beginning& beginning) { return has(file, beginning); });
    return found == beginnings.end() ? std::string_view() : found->format;
}

void refuse_large(int width, int height) {
    if (pixel_count(width, height) > most_pixels)
        refuse_size(width, height);
}

void refuse_hungry(int width, int height, int bytes_for_each_pixel) {
    if (pixel_count(width, height) * bytes_for_each_pixel > most_bytes_while_decoding)
        refuse_size(width, height);
}

void refuse_many_scans(std::span<const std::uint8_t> jpeg, int width, int height) {
    const int scans = count_jpeg_scans(jpeg);
    if (scans > most_scans || scans * pixel_count(width, height) > most_pixels_in_all_scans)
        throw Failure(FailureKind::invalid_picture, "The picture is stored in too many scans.");
}

} // namespace lookfar
