#include "demo/props.h"
#include "demo/scenes.h"
#include "demo/sky.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace lookfar::demo {

namespace {

constexpr double shore = 72.0;

QPointF main_summit(const Stage& stage) {
    return {stage.width() * 0.42, 14.0};
}

/// A rugged line from the summit down to a foot.
Shape flank(QPointF summit, double foot, unsigned seed) {
    constexpr unsigned steps = 14;
    Shape line{summit};
    for (unsigned step = 1; step <= steps; ++step) {
        const QPointF place = summit + (QPointF(foot, shore) - summit) * step / steps;
        line << place + QPointF(0.0, 2.2 * scattered(seed, step) - 1.1);
    }
    return line;
}

Shape between(const Shape& first, const Shape& second) {
    Shape outline = first;
    std::ranges::reverse_copy(second, std::back_inserter(outline));
    return outline;
}

/// The upper part of a side of the peak, with a ragged lower edge.
Shape snow_between(const Shape& left, const Shape& right, unsigned seed) {
    constexpr qsizetype length = 6;
    constexpr unsigned points = 8;
    const QPointF across = right[length - 1] - left[length - 1];
    Shape edge = left.first(length);
    for (unsigned point = 0; point <= points; ++point) {
        const double drop = point % 2 == 0 ? 0.0 : 3.0 + 5.0 * scattered(seed, point);
        edge << left[length - 1] + across * point / points + QPointF(0.0, drop);
    }
    return between(edge, right.first(length));
}

void paint_peak(Stage& stage, QPointF summit, double half_width, double haze, unsigned seed) {
    const double x = summit.x();
    const Shape left = flank(summit, x - half_width, seed);
    const Shape ridge = flank(summit, x + half_width * 0.18, seed + 1);
    const Shape right = flank(summit, x + half_width, seed + 2);
    stage.fill(between(left, ridge), 0x8A8F9E, haze);
    stage.fill(between(ridge, right), 0x5E6678, haze);
    stage.fill(snow_between(left, ridge, seed + 3), 0xFFFFFF, haze);
    stage.fill(snow_between(ridge, right, seed + 4), 0xC9D6EA, haze);
}

void paint_range(Stage& stage) {
    unsigned seed = 110;
    for (const double x : positions(14.0, stage.width() + 20.0, 36.0)) {
        const QPointF summit(x + 14.0 * scattered(seed, 1), 28.0 + 12.0 * scattered(seed, 2));
        paint_peak(stage, summit, 30.0 + 8.0 * scattered(seed, 3), 0.4, seed);
        seed += 10;
    }
    paint_peak(stage, main_summit(stage), 52.0, 0.15, 100);
}

void paint_pine(Stage& stage, QPointF foot, double height) {
    stage.fill(trapezoid(foot.x(), foot.y() - height * 0.2, height * 0.04, foot.y(), height * 0.04),
               0x4A3526);
    for (int tier = 0; tier < 3; ++tier) {
        const double bottom = foot.y() - height * (0.12 + 0.26 * tier);
        const Shape branches =
            trapezoid(foot.x(), bottom - height * 0.4, 0.0, bottom, height * (0.25 - 0.06 * tier));
        stage.fill(branches, 0x284B34);
    }
}

void paint_forest(Stage& stage) {
    const auto trees = static_cast<unsigned>(stage.width() * 0.9);
    for (unsigned tree = 0; tree < trees; ++tree) {
        const double x = (tree + scattered(81, tree)) * stage.width() / trees;
        const double rise = (3.0 * std::sin(x * 0.06) + 3.0) * scattered(82, tree);
        paint_pine(stage, {x, shore + 0.3 - rise}, 5.0 + 5.0 * scattered(83, tree));
    }
}

void paint_hut(Stage& stage) {
    const double x = stage.width() * 0.7;
    stage.fill(QRectF(x - 4.5, shore - 5.0, 9.0, 5.0), 0x7A5230);
    stage.fill(trapezoid(x, shore - 9.5, 0.0, shore - 5.0, 5.7), 0x4E3524);
    paint_windows(stage, QRectF(x - 3.9, shore - 4.4, 7.8, 3.4), 3, 1, 84);
    for (unsigned puff = 0; puff < 6; ++puff) {
        const double age = progress(stage.moment(), 6.0, puff / 6.0);
        const QPointF place(x + 2.5 + age * 4.0, shore - 9.0 - age * 11.0);
        stage.fill_ellipse(place, 0.6 + age * 1.6, 0.6 + age * 1.2,
                           translucent(Qt::white, 0.35 * (1.0 - age)));
    }
}

void paint_cable_car(Stage& stage) {
    const QPointF summit = main_summit(stage) + QPointF(2.0, 4.0);
    const QPointF valley(summit.x() + 65.0, shore - 7.0);
    stage.line(valley, summit, 0.18, 0x2A2D34);
    for (const double start : {0.1, 0.6}) {
        const double way = progress(stage.moment(), 16.0, start);
        const QPointF hook = valley + (summit - valley) * (1.0 - std::abs(2.0 * way - 1.0));
        const QRectF cabin(hook + QPointF(-1.6, 1.8), QSizeF(3.2, 2.4));
        stage.line(hook, hook + QPointF(0.0, 1.8), 0.2, 0x2A2D34);
        stage.fill(cabin, 0xD62828);
        paint_windows(stage, cabin.adjusted(0.1, 0.1, -0.1, -0.8), 3, 1, 85);
    }
}

} // namespace

void paint_mountain(Stage& stage) {
    paint_sky(stage, shore);
    paint_range(stage);
    paint_hills(stage, shore, 15.0, 9, 0x3F6B4A);
    paint_cable_car(stage);
    paint_forest(stage);
    paint_hut(stage);
    stage.mirror_in_water(shore, 0x1F5066);
    paint_sailing_boat(stage, {stage.crossing(30.0, 0.2, 10.0), 87.0}, 9.0, 0x8C3B2E);
}

} // namespace lookfar::demo
