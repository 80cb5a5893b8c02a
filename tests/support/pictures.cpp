#include "support/pictures.h"

#include <QBuffer>
#include <QColor>
#include <QImage>

namespace lookfar::testing {

Bytes encode(const QImage& image, const char* format) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format, 85);
    return {buffer.data().begin(), buffer.data().end()};
}

Bytes picture_file(int width, int height, std::uint32_t colour, const char* format) {
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(colour | 0xFF000000U);
    return encode(image, format);
}

Bytes deep_png(int width, int height) {
    QImage image(width, height, QImage::Format_RGBA64);
    image.fill(QColor(1, 2, 3, 4));
    return encode(image, "png");
}

Bytes picture_with_white_corner(int width, int height, const char* format) {
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::black);
    for (int row = 0; row < 8; ++row)
        for (int column = 0; column < 8; ++column)
            image.setPixel(column, row, qRgb(255, 255, 255));
    return encode(image, format);
}

Bytes detailed_jpeg(int width, int height, std::uint32_t seed) {
    QImage image(width, height, QImage::Format_RGB32);
    std::uint32_t noise = seed;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            noise = noise * 1664525U + 1013904223U;
            const int grain = static_cast<int>(noise >> 27U);
            image.setPixel(x, y,
                           qRgb((x * 255 / width + grain) & 255, (y * 255 / height + grain) & 255,
                                ((x / 16 + y / 16) * 8 + grain) & 255));
        }
    }
    return encode(image, "jpg");
}

} // namespace lookfar::testing
