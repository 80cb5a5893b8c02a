#include "demo/props.h"
#include "demo/scenes.h"
#include "demo/sky.h"

#include <array>
#include <cmath>

namespace lookfar::demo {

namespace {

constexpr double waterline = 60.0;
constexpr std::array house_colours{0xC8553DU, 0xE9C46AU, 0xF1E3CBU, 0x6D9DC5U,
                                   0xD98C5FU, 0x8AA67EU, 0xB56576U};
constexpr std::array hull_colours{0xA63D40U, 0x2F5D8AU, 0x2D6A4FU, 0xE0E0DCU};

void paint_house(Stage& stage, double left, double width, unsigned house) {
    const double height = 15.0 + 9.0 * scattered(41, house);
    const double eaves = waterline - 2.0 - height;
    const double middle = left + width / 2.0;
    stage.fill(QRectF(left, eaves, width, height), house_colours[house % house_colours.size()]);
    stage.fill(QRectF(left + width * 0.72, eaves - width * 0.55, 1.2, 4.0), 0x5F4A42);
    stage.fill(trapezoid(middle, eaves - width * 0.65, 0.0, eaves, width / 2.0 + 0.4), 0x7A4136);
    paint_windows(stage, QRectF(left, eaves + 0.5, width, height - 5.0), 3, height > 19.0 ? 4 : 3,
                  house);
    stage.fill(QRectF(left + width * 0.4, waterline - 6.0, width * 0.2, 4.0), 0x4B362C);
}

void paint_quay(Stage& stage) {
    unsigned house = 0;
    for (double left = -3.0; left < stage.width(); ++house) {
        const double width = 9.0 + 4.0 * scattered(42, house);
        paint_house(stage, left, width, house);
        left += width + 0.2;
    }
    stage.fill(QRectF(0.0, waterline - 2.2, stage.width(), 2.2), 0x8C8478);
    stage.fill(QRectF(0.0, waterline - 2.2, stage.width(), 0.5), 0xB9B1A2);
    for (const double x : positions(8.0, stage.width(), 17.0)) {
        stage.line({x, waterline - 2.0}, {x, waterline - 9.0}, 0.3, 0x2E3238);
        stage.lamp({x, waterline - 9.4}, 6.0);
    }
}

/// A walking figure, its feet at the place.
void paint_walker(Stage& stage, QPointF feet, double height, const QColor& clothes) {
    const auto above = [&](double share) { return feet - QPointF(0.0, height * share); };
    const QPointF step(height * 0.12 * std::sin(stage.moment().frame * 2.1 + feet.y() * 7.0), 0.0);
    for (const QPointF& foot : {feet - step, feet + step})
        stage.line(above(0.45), foot, height * 0.1, 0x2B2D3A);
    stage.line(above(0.45), above(0.72), height * 0.2, clothes);
    stage.fill_ellipse(above(0.91), height * 0.09, height * 0.1, 0xE3B899);
}

void paint_walkers(Stage& stage) {
    for (unsigned walker = 0; walker < 5; ++walker) {
        const double x = stage.crossing(50.0 + 7.0 * walker, scattered(43, walker), 0.0);
        paint_walker(stage, {x, waterline - 2.0}, 3.6, hull_colours[walker % hull_colours.size()]);
    }
}

void paint_moored_boats(Stage& stage) {
    unsigned boat = 0;
    for (const double x : positions(12.0, stage.width() - 6.0, 23.0)) {
        const double bobbing = 0.35 * std::sin(stage.moment().frame * 0.9 + x);
        paint_sailing_boat(stage, {x, waterline + 3.5 + bobbing}, 8.0,
                           hull_colours[boat++ % hull_colours.size()]);
    }
}

} // namespace

void paint_harbour(Stage& stage) {
    paint_sky(stage, waterline);
    paint_hills(stage, waterline, 26.0, 5, 0x6B8F71);
    paint_quay(stage);
    paint_walkers(stage);
    stage.mirror_in_water(waterline, 0x2F5F7A);
    paint_moored_boats(stage);
    paint_sailing_boat(stage, {stage.crossing(26.0, 0.3, 15.0), 74.0}, 12.0, 0x7B2D26);
    const double from_right = stage.width() - stage.crossing(17.0, 0.75, 22.0);
    paint_sailing_boat(stage, {from_right, 90.0}, 18.0, 0x284B63);
}

} // namespace lookfar::demo
