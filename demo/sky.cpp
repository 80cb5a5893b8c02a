#include "demo/sky.h"

#include <QLinearGradient>
#include <QPainterPath>
#include <algorithm>
#include <cmath>
#include <numbers>

namespace lookfar::demo {

namespace {

void paint_air(Stage& stage, double horizon) {
    const Light& light = stage.light();
    QLinearGradient gradient(0.0, 0.0, 0.0, horizon);
    gradient.setColorAt(0.0, light.zenith);
    gradient.setColorAt(0.55, mixed(light.zenith, light.horizon, 0.45));
    gradient.setColorAt(1.0, light.horizon);
    stage.painter().fillRect(QRectF(0.0, 0.0, stage.width(), Stage::height), gradient);
}

void paint_stars(Stage& stage, double horizon) {
    const auto count = static_cast<unsigned>(stage.width() * 1.1);
    for (unsigned star = 0; star < count; ++star) {
        const QPointF place(scattered(1, star) * stage.width(), scattered(2, star) * horizon);
        const double radius = 0.08 + 0.16 * std::pow(scattered(3, star), 3.0);
        const double twinkle = 0.45 + 0.55 * scattered(4 + stage.moment().frame, star);
        const double haze = 1.0 - 0.7 * place.y() / horizon;
        stage.painter().setBrush(
            translucent(Qt::white, std::pow(stage.darkness(), 2.0) * twinkle * haze));
        stage.painter().drawEllipse(place, radius, radius);
    }
}

/// The hours from one hour of the day to the next time that it is the other.
double hours_between(double first, double second) {
    return std::fmod(second - first + 24.0, 24.0);
}

/// A disc that rises on the left and sets on the right; below the horizon it is not seen.
void paint_disc(Stage& stage, double horizon, double rise, double set, const QColor& colour) {
    const double way = hours_between(rise, hour_of(stage.moment())) / hours_between(rise, set);
    if (way > 1.0)
        return;
    const double radius = 2.6;
    const double elevation = std::sin(way * std::numbers::pi);
    const QPointF place(stage.width() * (0.06 + 0.88 * way), horizon * (1.02 - 0.84 * elevation));
    const QColor low = mixed(colour, 0xFF8A3C, std::max(0.0, 1.0 - 2.0 * elevation));
    stage.glow(place, 13.0 * radius, low, 0.4);
    stage.glow(place, 4.0 * radius, low, 0.5);
    stage.painter().setBrush(mixed(low, Qt::white, 0.35));
    stage.painter().drawEllipse(place, radius, radius);
}

QPainterPath cloud_shape(unsigned cloud, QPointF centre, double size) {
    constexpr unsigned puffs = 9;
    QPainterPath shape;
    shape.setFillRule(Qt::WindingFill);
    for (unsigned puff = 0; puff < puffs; ++puff) {
        const double along = (puff + 0.5) / puffs * 2.0 - 1.0;
        const double swelling = (1.0 - along * along) * (0.5 + 0.5 * scattered(20 + cloud, puff));
        shape.addEllipse(centre + QPointF(along, -swelling * 0.22) * size,
                         size * (0.16 + 0.16 * swelling), size * (0.07 + 0.2 * swelling));
    }
    return shape;
}

void paint_cloud(Stage& stage, double horizon, unsigned cloud) {
    const Light& light = stage.light();
    const double size = 7.0 + 9.0 * scattered(10, cloud);
    const double x = stage.crossing(90.0 + 60.0 * scattered(11, cloud), 0.62 * cloud, 2.0 * size);
    const QPointF centre(x, horizon * (0.1 + 0.6 * scattered(13, cloud)));
    const double opacity = 0.9 - 0.6 * light.darkness;
    QLinearGradient gradient(centre - QPointF(0.0, size * 0.45), centre + QPointF(0.0, size * 0.2));
    gradient.setColorAt(0.0, translucent(mixed(light.ambient, light.horizon, 0.25), opacity));
    gradient.setColorAt(1.0, translucent(mixed(light.horizon, light.zenith, 0.35), opacity * 0.55));
    stage.painter().setBrush(gradient);
    stage.painter().drawPath(cloud_shape(cloud, centre, size));
}

} // namespace

void paint_sky(Stage& stage, double horizon) {
    paint_air(stage, horizon);
    paint_stars(stage, horizon);
    paint_disc(stage, horizon, sunrise, sunset, 0xFFF6D8);
    paint_disc(stage, horizon, sunset, sunrise, 0xDDE3F0);
    const auto clouds = static_cast<unsigned>(3.0 + stage.width() / 35.0);
    for (unsigned cloud = 0; cloud < clouds; ++cloud)
        paint_cloud(stage, horizon, cloud);
}

} // namespace lookfar::demo
