#pragma once

#include "demo/moment.h"

#include <QColor>

namespace lookfar::demo {

inline constexpr double sunrise = 6.0; ///< An hour of the day, as sunset is.
inline constexpr double sunset = 20.0;

/// The light at a time of day.
struct Light {
    QColor zenith;
    QColor horizon;
    QColor ambient;        ///< White at noon, a dim blue at night.
    double darkness = 0.0; ///< 0 by day, 1 by night.
};

Light light_at(const Moment& moment);

/// The colour a surface shows in that light.
QColor lit(const QColor& surface, const Light& light);

/// As opaque as the first colour; the second one's share runs from 0 to 1.
QColor mixed(const QColor& first, const QColor& second, double share);

/// The colour with an opacity from 0 to 1.
QColor translucent(const QColor& colour, double opacity);

} // namespace lookfar::demo
