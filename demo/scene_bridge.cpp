#include "demo/props.h"
#include "demo/scenes.h"
#include "demo/sky.h"

#include <array>
#include <cmath>

namespace lookfar::demo {
namespace {

constexpr double waterline = 68.0;
constexpr double deck = 54.0;
constexpr double pylon_top = 16.0;
constexpr QRgb steel = 0xB5443A;
constexpr std::array car_colours{0xD9D9D6U, 0x2F5D8AU, 0xC0392BU, 0xF1C40FU, 0x34495EU};

struct Pylons {
    double left;
    double right;
};

Pylons pylons_of(const Stage& stage) {
    return {stage.width() * 0.26, stage.width() * 0.74};
}

/// The height of the main cable: it hangs between the pylons and runs down to the banks.
double cable_height(const Stage& stage, double x) {
    const Pylons pylons = pylons_of(stage);
    constexpr double sag = deck - 2.0 - pylon_top;
    if (x < pylons.left) {
        return pylon_top + sag * std::pow((pylons.left - x) / pylons.left, 1.25);
    }
    if (x > pylons.right) {
        return pylon_top +
               sag * std::pow((x - pylons.right) / (stage.width() - pylons.right), 1.25);
    }
    const double middle = (pylons.left + pylons.right) / 2.0;
    const double share = (x - middle) / (pylons.right - middle);
    return pylon_top + sag * (1.0 - share * share);
}

void paint_cable(Stage& stage) {
    const double step = stage.width() / 120.0;
    for (const double x : positions(0.0, stage.width(), step)) {
        const QPointF place(x, cable_height(stage, x));
        const QPointF next(x + step, cable_height(stage, x + step));
        stage.line(place, next, 0.6, QColor(steel));
        stage.line(place, {x, deck}, 0.13, QColor(steel));
    }
}

void paint_cable_lamps(Stage& stage) {
    const double step = stage.width() / 60.0;
    for (const double x : positions(step, stage.width(), step)) {
        stage.glow({x, cable_height(stage, x)}, 1.8, QColor(0xFFE9B8), stage.light().darkness);
    }
}

void paint_pylon(Stage& stage, double x) {
    for (const double side : {-2.2, 1.0}) {
        stage.fill(QRectF(x + side, pylon_top - 2.0, 1.3, waterline - pylon_top + 2.0),
                   QColor(steel));
    }
    for (const double y : {18.0, 28.0, 38.0, 48.0}) {
        stage.fill(QRectF(x - 2.2, y, 4.4, 1.1), QColor(steel).darker(115));
    }
    stage.fill(QRectF(x - 4.0, waterline - 3.0, 8.0, 3.0), QColor(0x8D8A84));
    stage.glow({x, pylon_top - 2.5}, 2.4, QColor(0xFF4636),
               stage.moment().frame % 2 == 0 ? 0.9 : 0.3);
}

void paint_traffic(Stage& stage) {
    const auto cars = static_cast<unsigned>(stage.width() / 16.0);
    for (unsigned car = 0; car < cars; ++car) {
        const double way =
            progress(stage.moment(), 24.0 + 6.0 * scattered(121, car), scattered(122, car));
        paint_car_from_side(stage, {way * (stage.width() + 8.0) - 4.0, deck}, 3.6,
                            QColor(car_colours[car % car_colours.size()]));
    }
}

void paint_deck(Stage& stage) {
    stage.fill(QRectF(0.0, deck, stage.width(), 2.0), QColor(steel).darker(120));
    stage.fill(QRectF(0.0, deck, stage.width(), 0.5), QColor(0x6B6F76));
    for (const double x : positions(4.0, stage.width(), 8.0)) {
        stage.line({x, deck}, {x, deck - 4.0}, 0.2, QColor(0x44484E));
        stage.glow({x, deck - 4.0}, 3.2, QColor(0xFFD08A), stage.light().darkness);
    }
}

void paint_ferry(Stage& stage) {
    const double x = progress(stage.moment(), 20.0, 0.35) * (stage.width() + 40.0) - 30.0;
    const double y = 86.0 + 0.3 * std::sin(stage.moment().frame * 1.1);
    stage.fill(QPolygonF({{x, y - 4.0}, {x + 28.0, y - 4.0}, {x + 24.0, y}, {x + 2.0, y}}),
               QColor(0x24507A));
    stage.fill(QRectF(x + 3.0, y - 7.5, 19.0, 3.6), QColor(0xF4F1EA));
    stage.fill(QRectF(x + 6.0, y - 10.6, 12.0, 3.2), QColor(0xF4F1EA));
    paint_windows(stage, {QRectF(x + 3.4, y - 7.3, 18.2, 2.8), 12, 1, 123});
    paint_windows(stage, {QRectF(x + 6.4, y - 10.4, 11.2, 2.6), 7, 1, 124});
    stage.fill(QRectF(x + 10.0, y - 14.0, 3.4, 3.5), QColor(0xC8322B));
}

} // namespace

QImage draw_bridge(QSize size, const Moment& moment) {
    Stage stage(size, moment);
    paint_sky(stage, waterline);
    paint_hills(stage, waterline, 22.0, 7, QColor(0x6D8B8F));
    paint_skyline(stage, waterline, 30.0, 125);
    paint_traffic(stage);
    paint_deck(stage);
    paint_cable(stage);
    const Pylons pylons = pylons_of(stage);
    paint_pylon(stage, pylons.left);
    paint_pylon(stage, pylons.right);
    paint_cable_lamps(stage);
    stage.mirror_in_water(waterline, QColor(0x2B5876));
    paint_ferry(stage);
    const double way = progress(moment, 28.0, 0.7) * (stage.width() + 20.0) - 10.0;
    paint_sailing_boat(stage, {stage.width() - way, 80.0}, 7.0, QColor(0x6B2737));
    return stage.take_picture();
}

} // namespace lookfar::demo
