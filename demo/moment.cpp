#include "demo/moment.h"

#include <cmath>

namespace lookfar::demo {

namespace {

double fraction(double number) {
    return number - std::floor(number);
}

} // namespace

double hour_of(const Moment& moment) {
    constexpr double milliseconds_per_hour = 3'600'000.0;
    return moment.time.time().msecsSinceStartOfDay() / milliseconds_per_hour;
}

double progress(const Moment& moment, double frames_per_round, double start) {
    return fraction(moment.frame / frames_per_round + start);
}

double scattered(unsigned seed, unsigned index) {
    return fraction(std::sin(seed * 12.9898 + index * 78.233) * 43758.5453);
}

} // namespace lookfar::demo
