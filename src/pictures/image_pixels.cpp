#include "pictures/image_pixels.h"

#include "runtime/pictures/pixel_layout.h"

#include <QBuffer>
#include <QByteArray>
#include <QImage>
#include <QImageReader>

#include <algorithm>
#include <cstring>
#include <new>

namespace lookfar {

namespace {

/// Rows that are converted at once: few enough pixels for a processor's cache, and for Qt to start
/// no threads for them.
int rows_at_once(const QImage& image) {
    constexpr int pixels_at_once = 1 << 15;
    return std::max(1, pixels_at_once / image.width());
}

/// Writes the image, converted to the format, row by row to places so many bytes apart.
void write_rows(const QImage& image, QImage::Format format, std::uint8_t* place,
                std::size_t stride) {
    const int max_rows = rows_at_once(image);
    for (int top = 0; top < image.height(); top += max_rows) {
        const int rows = std::min(max_rows, image.height() - top);
        const QImage band = image.copy(0, top, image.width(), rows).convertToFormat(format);
        if (band.isNull())
            throw std::bad_alloc();
        const auto row_bytes = static_cast<std::size_t>(band.width() * band.depth() / 8);
        for (int row = 0; row < rows; ++row, place += stride)
            std::memcpy(place, band.constScanLine(row), row_bytes);
    }
}

} // namespace

Pixels pixels_of(const QImage& image, const PixelAllocator& allocate) {
    if (image.isNull())
        throw std::bad_alloc();
    const PixelLayout layout(image.width(), image.height(), image.hasAlphaChannel());
    const auto bytes = allocate(layout.byte_count());
    const std::span rows(bytes.get(), layout.row_bytes());
    write_rows(image, QImage::Format_RGB888, rows.data(),
               static_cast<std::size_t>(stride_of(image.width())));
    clear_padding(rows, image.width());
    if (image.hasAlphaChannel())
        write_rows(image, QImage::Format_Alpha8, rows.data() + rows.size(),
                   static_cast<std::size_t>(image.width()));
    return layout.pixels_in(bytes);
}

QImage png_image(std::span<const std::uint8_t> file) {
    QByteArray bytes = QByteArray::fromRawData(reinterpret_cast<const char*>(file.data()),
                                               static_cast<qsizetype>(file.size()));
    QBuffer content(&bytes);
    QImageReader reader(&content, "png");
    // All plugins would be loaded to be asked.
    reader.setAutoDetectImageFormat(false);
    return reader.read();
}

} // namespace lookfar
