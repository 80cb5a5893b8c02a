#include "demo/light.h"

#include <algorithm>
#include <array>

namespace lookfar::demo {
namespace {

struct LightAtHour {
    double hour;
    QRgb zenith;
    QRgb horizon;
    QRgb ambient;
    double darkness;
};

constexpr std::array hours_of_the_day{
    LightAtHour{0.0, 0x070B1E, 0x1A2848, 0x3A4468, 1.00},
    LightAtHour{4.5, 0x0A1028, 0x22304F, 0x3C4669, 1.00},
    LightAtHour{5.6, 0x232C5C, 0x8A5A78, 0x5F587C, 0.85},
    LightAtHour{6.4, 0x42609F, 0xF4A583, 0xB49494, 0.45},
    LightAtHour{7.6, 0x4F8FD0, 0xF7DCB4, 0xF0DCC8, 0.00},
    LightAtHour{10.0, 0x3A86D6, 0xCFE7F7, 0xFFFFFF, 0.00},
    LightAtHour{16.0, 0x3A80CF, 0xD9E8F0, 0xFFFDF5, 0.00},
    LightAtHour{18.5, 0x4A78B8, 0xF6CF96, 0xF5D3A8, 0.00},
    LightAtHour{19.7, 0x3B4A86, 0xF58A4B, 0xB8846F, 0.40},
    LightAtHour{20.7, 0x1F2556, 0xB8566A, 0x685A80, 0.80},
    LightAtHour{22.0, 0x0A1028, 0x20304F, 0x3C4669, 1.00},
    LightAtHour{24.0, 0x070B1E, 0x1A2848, 0x3A4468, 1.00},
};

} // namespace

Light light_at(const Moment& moment) {
    const double hour = hour_of(moment);
    const auto after = std::ranges::upper_bound(hours_of_the_day, hour, {}, &LightAtHour::hour);
    const auto before = after - 1;
    const double share = (hour - before->hour) / (after->hour - before->hour);
    return {mixed(QColor(before->zenith), QColor(after->zenith), share),
            mixed(QColor(before->horizon), QColor(after->horizon), share),
            mixed(QColor(before->ambient), QColor(after->ambient), share),
            before->darkness + (after->darkness - before->darkness) * share};
}

QColor lit(const QColor& surface, const Light& light) {
    return {surface.red() * light.ambient.red() / 255,
            surface.green() * light.ambient.green() / 255,
            surface.blue() * light.ambient.blue() / 255, surface.alpha()};
}

QColor mixed(const QColor& first, const QColor& second, double share) {
    const auto mix = [share](float from, float to) {
        return from + (to - from) * static_cast<float>(share);
    };
    return QColor::fromRgbF(mix(first.redF(), second.redF()), mix(first.greenF(), second.greenF()),
                            mix(first.blueF(), second.blueF()));
}

QColor translucent(const QColor& colour, double opacity) {
    QColor result = colour;
    result.setAlphaF(static_cast<float>(std::clamp(opacity, 0.0, 1.0)));
    return result;
}

} // namespace lookfar::demo
