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

} // namespace
} // namespace lookfar::testing
