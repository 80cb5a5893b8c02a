#include "resources/resources.h"

#include "runtime/pictures/picture_decoder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>

namespace lookfar::testing {
namespace {

TEST(Resources, HoldTheIconInEverySizeWithTransparentCorners) {
    for (const int pixels : {16, 22, 24, 32, 48, 64, 128, 256}) {
        const Pixels icon = decode_pixels(resources::icon(pixels));
        EXPECT_EQ(icon.width, pixels);
        EXPECT_EQ(icon.height, pixels);
        ASSERT_NE(icon.opacity, nullptr) << pixels;
        EXPECT_EQ(icon.opacity[0], 0) << pixels;
        const std::ptrdiff_t middle = pixels / 2;
        const std::ptrdiff_t centre = middle * pixels + middle;
        EXPECT_EQ(icon.opacity[centre], 255) << pixels;
    }
    EXPECT_THROW(resources::icon(20), std::out_of_range);
}

TEST(Resources, HoldTheTestCardAndTheSplashPicture) {
    const Pixels card = decode_pixels(resources::test_card());
    EXPECT_EQ(card.width, 540);
    EXPECT_EQ(card.height, 405);
    const Pixels splash = decode_pixels(resources::splash());
    EXPECT_EQ(splash.width, 320);
    EXPECT_EQ(splash.height, 240);
    const auto row_of_the_text = splash.bytes.get() + std::ptrdiff_t{176} * splash.stride;
    EXPECT_EQ(std::count(row_of_the_text, row_of_the_text + 960, 255), 960);
}

} // namespace
} // namespace lookfar::testing
