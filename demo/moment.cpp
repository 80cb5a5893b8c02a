#include "demo/moment.h"

#include <cmath>
#include <cstdint>

namespace lookfar::demo {

double hour_of(const Moment& moment) {
    constexpr double milliseconds_per_hour = 3'600'000.0;
    return moment.time.time().msecsSinceStartOfDay() / milliseconds_per_hour;
}

double progress(const Moment& moment, double frames_per_round, double start) {
    const double rounds = moment.frame / frames_per_round + start;
    return rounds - std::floor(rounds);
}

double scattered(unsigned seed, unsigned index) {
    std::uint32_t bits = seed * 0x9E3779B1U + index * 0x85EBCA77U + 0x165667B1U;
    bits = (bits ^ (bits >> 15)) * 0x2C1B3C6DU;
    bits = (bits ^ (bits >> 12)) * 0x297A2D39U;
    bits ^= bits >> 15;
    return bits / 4294967296.0;
}

} // namespace lookfar::demo
