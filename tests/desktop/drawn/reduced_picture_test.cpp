#include "desktop/drawn/reduced_picture.h"

#include "desktop/desktop_fixture.h"

namespace lookfar::desktop {
namespace {

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
        EXPECT_EQ(reduction_for(*plain_picture(picture.width(), picture.height(), Qt::black), size),
                  factor)
            << picture.width() << " x " << picture.height() << " to " << size.width() << " x "
            << size.height();
}

TEST(ReducedPicture, KeepsAPlainColourExactlyByAnyFactor) {
    QImage image;
    for (int factor = 1; factor <= 16; ++factor)
        for (int value = 0; value < 256; value += 5) {
            const QColor colour(value, 255 - value, value / 2);
            QImage expected(2, 1, QImage::Format_RGB32);
            expected.fill(colour);
            reduce(*plain_picture(2 * factor, factor, colour), factor, image);
            ASSERT_TRUE(image == expected) << factor << colour.name().toStdString();
        }
}

TEST(ReducedPicture, HasTheAverageOfEachSquareInItsPlace) {
    const auto colour_at = [](int x, int y) { return qRgb(x * 17, y * 30, x * y); };
    QImage picture(15, 9, QImage::Format_RGB32);
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            picture.setPixel(x, y, colour_at(x, y));
    const int factor = 3;
    QImage image;
    reduce(*picture_of(picture), factor, image);
    ASSERT_EQ(image.size(), QSize(5, 3));
    // The middle of a square is the average of what grows evenly across it.
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            EXPECT_EQ(image.pixel(x, y), colour_at(x * factor + 1, y * factor + 1)) << x << y;
}

} // namespace
} // namespace lookfar::desktop
