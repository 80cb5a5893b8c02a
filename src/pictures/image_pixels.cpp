#include "pictures/image_pixels.h"

#include <QBuffer>
#include <QByteArray>
#include <QImage>
#include <QImageReader>

#include <algorithm>
#include <cstring>
#include <memory>
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
    const int most_rows = rows_at_once(image);
    for (int top = 0; top < image.height(); top += most_rows) {
        const int rows = std::min(most_rows, image.height() - top);
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
    const int stride = stride_of(image.width());
    const auto width = static_cast<std::size_t>(image.width());
    const auto height = static_cast<std::size_t>(image.height());
    const std::size_t row_bytes = static_cast<std::size_t>(stride) * height;
    const bool has_opacity = image.hasAlphaChannel();
    auto bytes = allocate(row_bytes + (has_opacity ? width * height : 0));
    write_rows(image, QImage::Format_RGB888, bytes.get(), static_cast<std::size_t>(stride));
    clear_padding({bytes.get(), row_bytes}, image.width());
    Pixels pixels{
        .width = image.width(), .height = image.height(), .stride = stride, .bytes = bytes};
    if (has_opacity) {
        write_rows(image, QImage::Format_Alpha8, bytes.get() + row_bytes, width);
        pixels.opacity = std::shared_ptr<const std::uint8_t[]>(bytes, bytes.get() + row_bytes);
    }
    return pixels;
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
