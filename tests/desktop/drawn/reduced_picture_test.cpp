#include "desktop/drawn/reduced_picture.h"

#include <gtest/gtest.h>

#include <functional>

namespace lookfar::desktop {
namespace {

Picture picture_of(int width, int height, const std::function<QRgb(int, int)>& colour_at) {
    const int stride = stride_of(width);
    auto bytes = std::make_shared<std::uint8_t[]>(static_cast<std::size_t>(stride) *
                                                  static_cast<std::size_t>(height));
    for (int row = 0; row < height; ++row)
        for (int column = 0; column < width; ++column) {
            const QRgb colour = colour_at(column, row);
            std::uint8_t* const pixel =
                bytes.get() + std::ptrdiff_t{row} * stride + std::ptrdiff_t{column} * 3;
            pixel[0] = static_cast<std::uint8_t>(qRed(colour));
            pixel[1] = static_cast<std::uint8_t>(qGreen(colour));
            pixel[2] = static_cast<std::uint8_t>(qBlue(colour));
        }
    return Picture(Pixels{
        .width = width, .height = height, .stride = stride, .bytes = bytes, .opacity = nullptr});
}

Picture black_picture(int width, int height) {
    return picture_of(width, height, [](int, int) { return qRgb(0, 0, 0); });
}

TEST(ReducedPicture, IsDividedByTheLargestFactorThatLeavesNoRestAndEnoughPixels) {
    const struct {
        QSize picture;
        QSize size;
        int factor = 1;
    } cases[] = {
        {{384, 216}, {192, 108}, 2}, {{384, 216}, {32, 18}, 12},  {{384, 216}, {33, 18}, 8},
        {{384, 216}, {384, 216}, 1}, {{384, 216}, {800, 600}, 1}, {{384, 216}, {10, 100}, 2},
        {{97, 101}, {10, 10}, 1},    {{320, 320}, {1, 1}, 16},    {{3, 3}, {1, 1}, 3},
        {{384, 216}, {0, 5}, 1},
    };
    for (const auto& [picture, size, factor] : cases)
        EXPECT_EQ(reduction_for(black_picture(picture.width(), picture.height()), size), factor)
            << picture.width() << " x " << picture.height() << " to " << size.width() << " x "
            << size.height();
}

TEST(ReducedPicture, KeepsAPlainColourExactlyByAnyFactor) {
    for (int factor = 2; factor <= 16; ++factor)
        for (int value = 0; value < 256; value += 5) {
            const QRgb colour = qRgb(value, 255 - value, value / 2);
            const Picture plain =
                picture_of(2 * factor, factor, [colour](int, int) { return colour; });
            const QImage image = reduced(plain, factor);
            ASSERT_EQ(image.size(), QSize(2, 1));
            ASSERT_EQ(image.pixel(0, 0), colour) << factor;
            ASSERT_EQ(image.pixel(1, 0), colour) << factor;
        }
}

TEST(ReducedPicture, HasTheAverageOfEachSquareInItsPlace) {
    const int factor = 3;
    const Picture picture = picture_of(15, 9, [](int column, int row) {
        return qRgb(column * 17, row * 30, (column * row) % 256);
    });
    const QImage image = reduced(picture, factor);
    ASSERT_EQ(image.size(), QSize(5, 3));
    for (int row = 0; row < image.height(); ++row)
        for (int column = 0; column < image.width(); ++column) {
            // The middle of a square is the average of what grows evenly across it.
            const int x = column * factor + 1;
            const int y = row * factor + 1;
            EXPECT_EQ(image.pixel(column, row), qRgb(x * 17, y * 30, x * y)) << column << row;
        }
}

} // namespace
} // namespace lookfar::desktop
