#include "desktop/drawn/reduced_picture.h"

#include "desktop/desktop_fixture.h"

namespace lookfar::desktop {
namespace {

TEST(ReducedPicture, IsOfTheSizeOrDividedWithoutARemainder) {
    const struct {
        QSize picture;
        QSize size;
        QSize reduced;
    } cases[] = {
        {{384, 216}, {192, 108}, {192, 108}}, {{384, 216}, {33, 18}, {33, 18}},
        {{384, 216}, {96, 54}, {96, 54}},     {{384, 216}, {97, 54}, {128, 72}},
        {{384, 216}, {150, 90}, {192, 108}},  {{384, 216}, {384, 216}, {384, 216}},
        {{384, 216}, {800, 600}, {384, 216}}, {{384, 216}, {10, 100}, {192, 108}},
        {{97, 101}, {30, 30}, {97, 101}},     {{320, 320}, {1, 1}, {2, 2}},
        {{255, 4}, {1, 1}, {1, 1}},           {{384, 216}, {0, 5}, {384, 216}},
    };
    for (const auto& [picture, size, reduced] : cases)
        EXPECT_EQ(reduced_size(*plain_picture(picture.width(), picture.height(), Qt::black), size),
                  reduced)
            << picture.width() << " x " << picture.height() << " to " << size.width() << " x "
            << size.height();
}

TEST(ReducedPicture, KeepsAPlainColourExactlyInAnySize) {
    QImage image;
    for (const QSize picture : {QSize(40, 30), QSize(255, 7)})
        for (int width = 1; width <= 40; width += 3)
            for (int value = 0; value < 256; value += 15) {
                const QSize size(width, 7);
                const QColor colour(value, 255 - value, value / 2);
                QImage expected(size, QImage::Format_RGB32);
                expected.fill(colour);
                reduce(*plain_picture(picture.width(), picture.height(), colour), size, image);
                ASSERT_TRUE(image == expected) << width << colour.name().toStdString();
            }
}

TEST(ReducedPicture, HasTheAverageOfTheWholePixelsInEachPlace) {
    QImage picture(22, 9, QImage::Format_RGB32);
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            picture.setPixel(x, y, qRgb(x * 10, y * 30, 0));
    QImage image;
    reduce(*picture_of(picture), {5, 2}, image);
    ASSERT_EQ(image.size(), QSize(5, 2));
    // Columns 0 to 3, 4 to 7, 8 to 12, 13 to 16 and 17 to 21; rows 0 to 3 and 4 to 8.
    const int reds[] = {15, 55, 100, 145, 190};
    const int greens[] = {45, 180};
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            EXPECT_EQ(image.pixel(x, y), qRgb(reds[x], greens[y], 0)) << x << y;
}

} // namespace
} // namespace lookfar::desktop
