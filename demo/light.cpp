#include "demo/light.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>

namespace lookfar::demo {

namespace {

struct Step {
    double hours_of_sun; ///< Since sunrise or until sunset, whichever is nearer; below 0 by night.
    QRgb zenith;
    QRgb horizon;
    QRgb ambient;
    double darkness;
};

constexpr std::array steps{
    Step{-2.0, 0x080C20, 0x1E2C4C, 0x3A4468, 1.00}, Step{-0.6, 0x1F2658, 0xA6586C, 0x625A7E, 0.83},
    Step{+0.3, 0x3F5593, 0xF59868, 0xB68C82, 0.42}, Step{+1.6, 0x4D84C4, 0xF7D6A6, 0xF2D8B8, 0.00},
    Step{+4.0, 0x3A84D4, 0xD2E8F5, 0xFFFFFC, 0.00},
};

double hours_of_sun(const Moment& moment) {
    const double hour = hour_of(moment);
    return std::clamp(std::min(hour - sunrise, sunset - hour), steps.front().hours_of_sun,
                      steps.back().hours_of_sun);
}

} // namespace

Light light_at(const Moment& moment) {
    const double hours = hours_of_sun(moment);
    const auto* const after =
        std::ranges::lower_bound(steps.begin() + 1, steps.end(), hours, {}, &Step::hours_of_sun);
    const auto* const before = std::prev(after);
    const double share =
        (hours - before->hours_of_sun) / (after->hours_of_sun - before->hours_of_sun);
    return {mixed(before->zenith, after->zenith, share),
            mixed(before->horizon, after->horizon, share),
            mixed(before->ambient, after->ambient, share),
            std::lerp(before->darkness, after->darkness, share)};
}

QColor lit(const QColor& surface, const Light& light) {
    return {surface.red() * light.ambient.red() / 255,
            surface.green() * light.ambient.green() / 255,
            surface.blue() * light.ambient.blue() / 255, surface.alpha()};
}

QColor mixed(const QColor& first, const QColor& second, double share) {
    const auto part = static_cast<float>(share);
    return QColor::fromRgbF(std::lerp(first.redF(), second.redF(), part),
                            std::lerp(first.greenF(), second.greenF(), part),
                            std::lerp(first.blueF(), second.blueF(), part), first.alphaF());
}

QColor translucent(const QColor& colour, double opacity) {
    QColor result = colour;
    result.setAlphaF(static_cast<float>(std::clamp(opacity, 0.0, 1.0)));
    return result;
}

} // namespace lookfar::demo
