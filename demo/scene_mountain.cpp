#include "demo/props.h"
#include "demo/scenes.h"
#include "demo/sky.h"

#include <array>
#include <cmath>
#include <ranges>
#include <vector>

namespace lookfar::demo {
namespace {

constexpr double shore = 72.0;

struct Peak {
    double across; ///< As a share of the width.
    double top;
    double half_width;
};

constexpr std::array peaks{Peak{0.16, 33.0, 34.0}, Peak{0.86, 30.0, 38.0}, Peak{0.66, 37.0, 28.0},
                           Peak{0.42, 14.0, 52.0}};

/// A rugged line from the summit down to a foot, thrown about by the seed.
std::vector<QPointF> rugged_line(QPointF summit, QPointF foot, unsigned seed) {
    constexpr int steps = 14;
    std::vector<QPointF> line;
    for (int step = 0; step <= steps; ++step) {
        const double share = static_cast<double>(step) / steps;
        const double throw_size = step == 0 ? 0.0 : 2.2;
        const auto index = static_cast<unsigned>(step);
        line.push_back(summit + (foot - summit) * share +
                       QPointF(0.0, (scattered(seed, index) - 0.5) * throw_size));
    }
    return line;
}

QPolygonF between(const std::vector<QPointF>& first, const std::vector<QPointF>& second) {
    QPolygonF shape(QList<QPointF>(first.begin(), first.end()));
    for (const QPointF& point : second | std::views::reverse) {
        shape << point;
    }
    return shape;
}

/// The upper part of a flank with a ragged lower edge.
QPolygonF snow_on(const std::vector<QPointF>& ridge, const std::vector<QPointF>& outline,
                  unsigned seed) {
    QPolygonF snow(QList<QPointF>(outline.begin(), outline.begin() + 6));
    constexpr int points = 7;
    for (int point = 0; point <= points; ++point) {
        const double share = static_cast<double>(point) / points;
        const double drop =
            point % 2 == 0 ? 0.0 : 3.0 + 5.0 * scattered(seed, static_cast<unsigned>(point));
        snow << outline[5] + (ridge[5] - outline[5]) * share + QPointF(0.0, drop);
    }
    for (std::size_t point = 5; point != 0; --point) {
        snow << ridge[point];
    }
    return snow;
}

void paint_peak(Stage& stage, const Peak& peak, unsigned seed, double haze) {
    const QPointF summit(peak.across * stage.width(), peak.top);
    const auto left = rugged_line(summit, {summit.x() - peak.half_width, shore}, seed);
    const auto ridge = rugged_line(summit, {summit.x() + peak.half_width * 0.18, shore}, seed + 1);
    const auto right = rugged_line(summit, {summit.x() + peak.half_width, shore}, seed + 2);
    const auto paint = [&](const QPolygonF& shape, QRgb surface) {
        stage.painter().setBrush(
            mixed(lit(QColor(surface), stage.light()), stage.light().horizon, haze));
        stage.painter().drawPolygon(shape);
    };
    paint(between(left, ridge), 0x8A8F9E);
    paint(between(ridge, right), 0x5E6678);
    paint(snow_on(ridge, left, seed + 3), 0xFFFFFF);
    paint(snow_on(ridge, right, seed + 4), 0xC9D6EA);
}

void paint_forest(Stage& stage) {
    const auto trees = static_cast<unsigned>(stage.width() * 0.9);
    for (unsigned tree = 0; tree < trees; ++tree) {
        const double x = (tree + scattered(81, tree)) * stage.width() / trees;
        const double rise = 3.0 * std::sin(x * 0.06) + 3.0;
        paint_pine(stage, {x, shore + 0.3 - rise * scattered(82, tree)},
                   5.0 + 5.0 * scattered(83, tree));
    }
}

void paint_hut(Stage& stage) {
    const double x = stage.width() * 0.7;
    stage.fill(QRectF(x, shore - 5.0, 9.0, 5.0), QColor(0x7A5230));
    stage.fill(QPolygonF({{x - 1.2, shore - 5.0}, {x + 4.5, shore - 9.5}, {x + 10.2, shore - 5.0}}),
               QColor(0x4E3524));
    paint_windows(stage, {QRectF(x + 0.6, shore - 4.4, 7.8, 3.4), 3, 1, 84});
    for (unsigned puff = 0; puff < 6; ++puff) {
        const double age = progress(stage.moment(), 6.0, puff / 6.0);
        const QPointF place(x + 7.0 + age * 4.0, shore - 9.0 - age * 11.0);
        stage.painter().setBrush(translucent(lit(Qt::white, stage.light()), 0.35 * (1.0 - age)));
        stage.painter().drawEllipse(place, 0.6 + age * 1.6, 0.6 + age * 1.2);
    }
}

void paint_cable_car(Stage& stage) {
    const QPointF valley(stage.width() * 0.95, shore - 7.0);
    const QPointF summit(stage.width() * peaks[3].across + 2.0, peaks[3].top + 4.0);
    stage.line(valley, summit, 0.18, QColor(0x2A2D34));
    for (const double start : {0.1, 0.6}) {
        const double way = progress(stage.moment(), 16.0, start);
        const QPointF hook = valley + (summit - valley) * (1.0 - std::abs(2.0 * way - 1.0));
        stage.line(hook, hook + QPointF(0.0, 1.8), 0.2, QColor(0x2A2D34));
        stage.fill(QRectF(hook.x() - 1.6, hook.y() + 1.8, 3.2, 2.4), QColor(0xD62828));
        paint_windows(stage, {QRectF(hook.x() - 1.5, hook.y() + 1.9, 3.0, 1.5), 3, 1, 85});
    }
}

} // namespace

QImage draw_mountain(QSize size, const Moment& moment) {
    Stage stage(size, moment);
    paint_sky(stage, shore);
    unsigned seed = 100;
    double haze = 0.45;
    for (const Peak& peak : peaks) {
        paint_peak(stage, peak, seed, haze);
        seed += 10;
        haze -= 0.1;
    }
    paint_hills(stage, shore, 15.0, 9, QColor(0x3F6B4A));
    paint_cable_car(stage);
    paint_forest(stage);
    paint_hut(stage);
    stage.mirror_in_water(shore, QColor(0x1F5066));
    const double way = progress(stage.moment(), 30.0, 0.2);
    paint_sailing_boat(stage, {way * (stage.width() + 20.0) - 10.0, 87.0}, 9.0, QColor(0x8C3B2E));
    return stage.take_picture();
}

} // namespace lookfar::demo
