#include "pipeline/blur.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <vector>

namespace lookfar::testing {
namespace {

using Buffer = std::vector<std::uint8_t>;

/// The filter step by step, every access checked: what `blur` has to come to.
void blur_literally(Buffer& bytes, int height, int stride) {
    const long size = static_cast<long>(bytes.size());
    const auto read = [&](long index) {
        return index >= 0 && index < size ? int{bytes[static_cast<std::size_t>(index)]} : 0;
    };
    long position = stride + 3;
    for (int pass = 1; pass <= height - 3; ++pass) {
        for (int step = 0; step <= stride; ++step) {
            ++position;
            int sum = read(position - stride);
            sum += read(position - 3);
            sum += read(position + 3);
            sum += read(position + stride);
            if (position < size)
                bytes[static_cast<std::size_t>(position)] = static_cast<std::uint8_t>(sum / 4);
        }
    }
}

void expect_its_steps(int height, int stride, int darkest = 0) {
    std::mt19937 random(static_cast<unsigned>(height * 10007 + stride));
    std::uniform_int_distribution<> brightness(darkest, 255);
    Buffer bytes(static_cast<std::size_t>(height * stride));
    for (auto& byte : bytes)
        byte = static_cast<std::uint8_t>(brightness(random));
    Buffer expected = bytes;
    blur_literally(expected, height, stride);
    Buffer elsewhere(bytes.size());
    blur(bytes, elsewhere, height, stride);
    blur(bytes, bytes, height, stride);
    ASSERT_EQ(bytes, expected) << height << " rows of " << stride << ", from " << darkest << " on";
    ASSERT_EQ(elsewhere, expected) << height << " rows of " << stride << ", into other memory";
}

TEST(Blur, EqualsItsStepsOnBuffersOfAllShapes) {
    for (int height = 0; height <= 24; ++height)
        for (int stride = 0; stride <= 28; stride += stride < 8 ? 1 : 4)
            expect_its_steps(height, stride);
    expect_its_steps(480, 1920);
    expect_its_steps(1000, 8);
    expect_its_steps(5, 4000);
    expect_its_steps(60, 400, 253);
}

} // namespace
} // namespace lookfar::testing
