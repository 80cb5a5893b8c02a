#include "resources/resources.h"

#include "pictures/decode_pixels.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace lookfar::testing {
namespace {

TEST(Resources, HoldTheIconInEverySizeWithTransparentCorners) {
    const auto files = resources::icons();
    EXPECT_GE(files.size(), 2U);
    for (const auto file : files) {
        const Pixels icon = decode_pixels(file);
        EXPECT_EQ(resources::icon(icon.width).data(), file.data()) << icon.width;
        EXPECT_EQ(icon.height, icon.width);
        ASSERT_NE(icon.opacity, nullptr) << icon.width;
        EXPECT_EQ(icon.opacity[0], 0) << icon.width;
        const std::ptrdiff_t middle = icon.width / 2;
        const std::ptrdiff_t centre = middle * icon.width + middle;
        EXPECT_EQ(icon.opacity[centre], 255) << icon.width;
    }
    EXPECT_THROW(resources::icon(20), std::out_of_range);
}

TEST(Resources, HoldTheTestCardAndTheSplashPicture) {
    const Pixels card = decode_pixels(resources::test_card());
    EXPECT_EQ(std::pair(card.width, card.height), std::pair(540, 405));
    const Pixels splash = decode_pixels(resources::splash());
    EXPECT_EQ(std::pair(splash.width, splash.height), std::pair(320, 240));
    const auto row_of_the_text = splash.bytes.get() + std::ptrdiff_t{176} * splash.stride;
    EXPECT_EQ(std::count(row_of_the_text, row_of_the_text + 960, 255), 960);
}

} // namespace
} // namespace lookfar::testing
