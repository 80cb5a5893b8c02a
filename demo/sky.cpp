#include "demo/sky.h"

#include <QLinearGradient>
#include <QPainterPath>
#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>

namespace lookfar::demo {
namespace {

constexpr double sunrise = 6.0;
constexpr double sunset = 20.0;

void paint_air(Stage& stage, double horizon) {
    QLinearGradient gradient(0.0, 0.0, 0.0, horizon);
    const Light& light = stage.light();
    gradient.setColorAt(0.0, light.zenith);
    gradient.setColorAt(0.55, mixed(light.zenith, light.horizon, 0.45));
    gradient.setColorAt(1.0, light.horizon);
    stage.painter().fillRect(QRectF(0.0, 0.0, stage.width(), Stage::height), gradient);
}

void paint_stars(Stage& stage, double horizon) {
    const double visibility = stage.light().darkness * stage.light().darkness;
    if (visibility < 0.05) {
        return;
    }
    const auto count = static_cast<unsigned>(stage.width() * 1.1);
    for (unsigned star = 0; star < count; ++star) {
        const QPointF place(scattered(1, star) * stage.width(), scattered(2, star) * horizon);
        const double radius = 0.08 + 0.16 * std::pow(scattered(3, star), 3.0);
        const double twinkle = 0.45 + 0.55 * scattered(4 + stage.moment().frame, star);
        const double haze = 1.0 - 0.7 * place.y() / horizon;
        stage.painter().setBrush(translucent(Qt::white, visibility * twinkle * haze));
        stage.painter().drawEllipse(place, radius, radius);
    }
}

/// How far along its way from rise to set something is; nothing while it is down.
std::optional<double> way_across(double hour, double rise, double set) {
    const double up = std::fmod(set - rise + 24.0, 24.0);
    const double since_rise = std::fmod(hour - rise + 24.0, 24.0);
    if (since_rise > up) {
        return std::nullopt;
    }
    return since_rise / up;
}

QPointF place_in_sky(const Stage& stage, double horizon, double way) {
    const double elevation = std::sin(way * std::numbers::pi);
    return {stage.width() * (0.06 + 0.88 * way), horizon * (1.02 - 0.84 * elevation)};
}

void paint_sun(Stage& stage, double horizon) {
    const auto way = way_across(hour_of(stage.moment()), sunrise, sunset);
    if (!way) {
        return;
    }
    const QPointF place = place_in_sky(stage, horizon, *way);
    const double height = std::sin(*way * std::numbers::pi);
    const QColor colour = mixed(QColor(0xFF8A3C), QColor(0xFFF6D8), std::min(1.0, height * 2.0));
    stage.glow(place, 38.0, colour, 0.55);
    stage.glow(place, 12.0, colour, 0.7);
    const double radius = 3.4 - height;
    stage.painter().setBrush(mixed(colour, Qt::white, 0.35));
    stage.painter().drawEllipse(place, radius, radius);
}

void paint_moon(Stage& stage, double horizon) {
    const auto way = way_across(hour_of(stage.moment()), sunset, sunrise);
    if (!way) {
        return;
    }
    const QPointF place = place_in_sky(stage, horizon, *way);
    const QColor colour(0xE9EDF5);
    stage.glow(place, 22.0, colour, 0.35);
    stage.painter().setBrush(colour);
    stage.painter().drawEllipse(place, 2.6, 2.6);
    stage.painter().setBrush(QColor(0xCDD3DF));
    stage.painter().drawEllipse(place + QPointF(-0.8, -0.5), 0.6, 0.6);
    stage.painter().drawEllipse(place + QPointF(0.7, 0.8), 0.45, 0.45);
    stage.painter().drawEllipse(place + QPointF(0.6, -1.0), 0.3, 0.3);
}

QPainterPath cloud_shape(unsigned cloud, QPointF centre, double size) {
    QPainterPath shape;
    shape.setFillRule(Qt::WindingFill);
    constexpr unsigned puffs = 9;
    for (unsigned puff = 0; puff < puffs; ++puff) {
        const double along = (puff + 0.5) / puffs * 2.0 - 1.0;
        const double swelling = (1.0 - along * along) * (0.5 + 0.5 * scattered(20 + cloud, puff));
        const QPointF place = centre + QPointF(along * size, -swelling * size * 0.22);
        shape.addEllipse(place, size * (0.16 + 0.16 * swelling), size * (0.07 + 0.2 * swelling));
    }
    return shape;
}

void paint_cloud(Stage& stage, double horizon, unsigned cloud) {
    const double size = 7.0 + 9.0 * scattered(10, cloud);
    const double travel = stage.width() + 4.0 * size;
    const double way =
        progress(stage.moment(), 90.0 + 60.0 * scattered(11, cloud), scattered(12, cloud));
    const QPointF centre(way * travel - 2.0 * size, horizon * (0.1 + 0.6 * scattered(13, cloud)));
    const QColor top = mixed(stage.light().ambient, stage.light().horizon, 0.25);
    const QColor bottom = mixed(stage.light().horizon, stage.light().zenith, 0.35);
    QLinearGradient gradient(centre - QPointF(0.0, size * 0.45), centre + QPointF(0.0, size * 0.2));
    const double opacity = 0.9 - 0.6 * stage.light().darkness;
    gradient.setColorAt(0.0, translucent(top, opacity));
    gradient.setColorAt(1.0, translucent(bottom, opacity * 0.55));
    stage.painter().setBrush(gradient);
    stage.painter().drawPath(cloud_shape(cloud, centre, size));
}

} // namespace

void paint_sky(Stage& stage, double horizon) {
    paint_air(stage, horizon);
    paint_stars(stage, horizon);
    paint_sun(stage, horizon);
    paint_moon(stage, horizon);
    const auto clouds = static_cast<unsigned>(3.0 + stage.width() / 35.0);
    for (unsigned cloud = 0; cloud < clouds; ++cloud) {
        paint_cloud(stage, horizon, cloud);
    }
}

} // namespace lookfar::demo
