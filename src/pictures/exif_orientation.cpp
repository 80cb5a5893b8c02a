#include "pictures/exif_orientation.h"

#include <QBuffer>
#include <QByteArray>
#include <QImageReader>

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

namespace lookfar {

namespace {

/// What stands before the data in a JPEG, and in some files of other formats.
constexpr std::string_view mark("Exif\0\0", 6);

/// The frame and the scan of a JPEG of one grey pixel, which only its header is read of.
constexpr std::array<std::uint8_t, 23> smallest_picture{
    0xFF, 0xC0, 0, 11, 8, 0, 1, 0, 1, 1, 1, 0x11, 0, 0xFF, 0xDA, 0, 8, 1, 1, 0, 0, 63, 0};

std::span<const std::uint8_t> without_mark(std::span<const std::uint8_t> exif) {
    const bool is_marked =
        exif.size() >= mark.size() && std::ranges::equal(exif.first(mark.size()), mark);
    return is_marked ? exif.subspan(mark.size()) : exif;
}

QByteArray as_bytes(std::span<const std::uint8_t> bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size())};
}

/// A JPEG with so much of the data as one segment holds, which tells its length in two bytes. The
/// orientation stands near the beginning.
QByteArray jpeg_with(std::span<const std::uint8_t> exif) {
    constexpr std::size_t length_size = 2;
    constexpr std::size_t max_size = 0xFFFF - length_size - mark.size();
    const auto data = exif.first(std::min(exif.size(), max_size));
    const std::size_t length = length_size + mark.size() + data.size();
    const std::array<std::uint8_t, 6> head{0xFF,
                                           0xD8,
                                           0xFF,
                                           0xE1,
                                           static_cast<std::uint8_t>(length >> 8U),
                                           static_cast<std::uint8_t>(length & 0xFFU)};
    return as_bytes(head) + QByteArray(mark.data(), mark.size()) + as_bytes(data) +
           as_bytes(smallest_picture);
}

} // namespace

// The reader of JPEGs knows how to read EXIF data, and those of the other formats don't.
QImageIOHandler::Transformations orientation_in_exif(std::span<const std::uint8_t> exif) {
    if (exif.empty())
        return QImageIOHandler::TransformationNone;
    QByteArray jpeg = jpeg_with(without_mark(exif));
    QBuffer file(&jpeg);
    QImageReader reader(&file, "jpeg");
    // All plugins would be loaded to be asked.
    reader.setAutoDetectImageFormat(false);
    return reader.transformation();
}

} // namespace lookfar
