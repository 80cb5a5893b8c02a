#include "demo/gif_writer.h"

#include <QColor>
#include <QImage>
#include <array>
#include <cstdlib>
#include <gtest/gtest.h>
#include <stdexcept>

namespace lookfar::demo {
namespace {

QImage read_back(const std::string& gif) {
    return QImage::fromData(reinterpret_cast<const uchar*>(gif.data()),
                            static_cast<int>(gif.size()), "GIF")
        .convertToFormat(QImage::Format_RGB32);
}

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

QImage plain(QSize size) {
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(QColor(0x336699));
    return picture;
}

TEST(GifWriter, KeepsPicturesOfFewColoursExactly) {
    // Noise fills the code table many times over. A single colour makes the longest strings and
    // uses each new code at once; this one is large enough to use the last.
    const std::array pictures{noise({1, 1}, 1),    noise({300, 1}, 1),    noise({17, 31}, 2),
                              noise({400, 1}, 1),  plain({3000, 2600}),   noise({640, 480}, 3),
                              noise({99, 98}, 97), noise({320, 240}, 256)};
    for (const QImage& picture : pictures) {
        EXPECT_EQ(read_back(to_gif(picture)), picture) << picture.width();
    }
    // Every length passes each growth of the codes at its own place, the last code included.
    for (int width = 200; width < 900; ++width) {
        const QImage picture = noise({width, 1}, 256);
        ASSERT_EQ(read_back(to_gif(picture)), picture) << width;
    }
}

TEST(GifWriter, KeepsManyColoursCloseToTheSource) {
    QImage gradient(256, 256, QImage::Format_ARGB32);
    for (int y = 0; y < 256; ++y) {
        for (int x = 0; x < 256; ++x) {
            gradient.setPixelColor(x, y, QColor(x, y, (x + y) / 2));
        }
    }
    const QImage result = read_back(to_gif(gradient));
    ASSERT_EQ(result.size(), gradient.size());
    // Dithering spreads a colour over its neighbours, so blocks are compared by their mean.
    const QImage means = result.scaled(16, 16, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    const QImage expected =
        gradient.scaled(16, 16, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    for (int y = 0; y < 16; ++y) {
        for (int x = 0; x < 16; ++x) {
            const QColor is = means.pixelColor(x, y);
            const QColor should = expected.pixelColor(x, y);
            EXPECT_LT(std::abs(is.red() - should.red()), 16) << x << ' ' << y;
            EXPECT_LT(std::abs(is.green() - should.green()), 16) << x << ' ' << y;
            EXPECT_LT(std::abs(is.blue() - should.blue()), 16) << x << ' ' << y;
        }
    }
}

TEST(GifWriter, RefusesSizesTheFormatCannotHold) {
    EXPECT_THROW(to_gif(QImage()), std::invalid_argument);
    EXPECT_THROW(to_gif(QImage(65536, 1, QImage::Format_RGB32)), std::invalid_argument);
}

} // namespace
} // namespace lookfar::demo
