#include "runtime/failure.h"
#include "runtime/numbers.h"
#include "runtime/random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace lookfar::testing {
namespace {

TEST(Numbers, AreReadStrictlyAndLeniently) {
    const std::pair<const char*, double> numbers[] = {
        {"10", 10},          {"  7 ", 7},
        {"-5", -5},          {"+5", 5},
        {".5", 0.5},         {"5.", 5},
        {"1e2", 100},        {"1E2", 100},
        {"1e-400", 0},       {"1e-999999999999999999999", 0},
        {"1e999", HUGE_VAL}, {"-1e999", -HUGE_VAL},
        {"4e-320", 4e-320},  {"0.1e-2", 0.001}};
    for (const auto& [text, value] : numbers) {
        EXPECT_EQ(Val(text), value) << text;
        EXPECT_EQ(strict_number(text), value) << text;
    }
    const std::pair<const char*, double> others[] = {
        {"1e", 1},  {"7x", 7},  {"1.2.3", 1.2}, {"1 2", 1},  {"1e-400x", 0},
        {"", 0},    {"x", 0},   {"-", 0},       {".", 0},    {"--1", 0},
        {"+-1", 0}, {"inf", 0}, {"nan", 0},     {"0x10", 0}, {"- 1", 0}};
    for (const auto& [text, value] : others) {
        EXPECT_EQ(Val(text), value) << text;
        EXPECT_THROW(strict_number(text), Failure) << text;
    }
}

TEST(Numbers, RoundHalvesToTheEvenNeighbourAndRefuseWhatDoesNotFit) {
    const std::pair<double, int> cases[] = {{0.5, 0},   {1.5, 2},  {2.5, 2},
                                            {-2.5, -2}, {2.51, 3}, {32767.4, 32767}};
    for (const auto& [value, rounded] : cases) {
        EXPECT_EQ(round_to_short(value), rounded);
        EXPECT_EQ(round_to_long(value), rounded);
    }
    EXPECT_THROW(round_to_short(32767.5), Failure);
    EXPECT_THROW(round_to_short(-32769), Failure);
    EXPECT_THROW(round_to_long(HUGE_VAL), Failure);
    EXPECT_THROW(round_to_long(std::nan("")), Failure);
}

TEST(Numbers, ThatAreRandomLieBelowOneAndRepeatWithTheirSeed) {
    RandomNumbers random;
    random.Randomize(43200.5F);
    const float first = random.Rnd();
    std::vector<float> draws(100000);
    std::ranges::generate(draws, [&] { return random.Rnd(); });
    const auto [smallest, largest] = std::ranges::minmax(draws);
    EXPECT_TRUE(smallest >= 0 && smallest < 0.001F) << smallest;
    EXPECT_TRUE(largest < 1 && largest > 0.999F) << largest;
    random.Randomize(43200.5F);
    EXPECT_EQ(random.Rnd(), first);
}

} // namespace
} // namespace lookfar::testing
