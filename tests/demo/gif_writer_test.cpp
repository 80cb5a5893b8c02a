#include "demo/gif_writer.h"

#include <QColor>
#include <QImage>
#include <gtest/gtest.h>

namespace lookfar::demo {
namespace {

QImage noise(QSize size, int colours) {
    QImage picture(size, QImage::Format_RGB32);
    unsigned state = 12345;
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            state = state * 1664525U + 1013904223U;
            const int value = static_cast<int>(state >> 16) % colours;
            picture.setPixelColor(x, y, QColor(value, 255 - value, value / 2));
        }
    }
    return picture;
}

TEST(GifWriter, KeepsPicturesOfFewColoursExactly) {
    for (const QImage& picture : {noise({1, 1}, 1), noise({17, 31}, 2), noise({320, 240}, 256)}) {
        const QImage read_back =
            QImage::fromData(QByteArray::fromStdString(to_gif(picture)), "GIF");
        EXPECT_EQ(read_back.convertToFormat(QImage::Format_RGB32), picture) << picture.width();
    }
}

} // namespace
} // namespace lookfar::demo
