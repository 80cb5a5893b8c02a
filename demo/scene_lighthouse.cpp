#include "demo/props.h"
#include "demo/scenes.h"
#include "demo/sky.h"

#include <cmath>
#include <numbers>

namespace lookfar::demo {

namespace {

constexpr double waterline = 68.0;
constexpr double foot = 56.0;
constexpr double gallery = 20.0;

double lighthouse_x(const Stage& stage) {
    return stage.width() * 0.7;
}

void paint_cliff(Stage& stage) {
    const double left = stage.width() * 0.48;
    const double right = stage.width() + 1.0;
    const double slope = stage.width() * 0.62;
    stage.fill(
        {{left, waterline}, {left + 3.0, 62.0}, {slope, 55.0}, {right, 52.0}, {right, waterline}},
        0x7D6B5D);
    stage.fill({{left + 3.0, 62.0}, {slope, 54.5}, {right, 51.0}, {right, 58.0}, {slope, 59.0}},
               0x6C9A50);
}

void paint_keepers_house(Stage& stage) {
    const double middle = lighthouse_x(stage) + 13.0;
    stage.fill(QRectF(middle - 6.0, 48.0, 12.0, 6.5), 0xF1ECE0);
    stage.fill(trapezoid(middle, 44.0, 4.0, 48.0, 7.0), 0x8A4B3C);
    paint_windows(stage, QRectF(middle - 5.5, 48.4, 11.0, 4.6), 4, 1, 95);
}

void paint_tower(Stage& stage) {
    constexpr int bands = 6;
    const double x = lighthouse_x(stage);
    const auto height_at = [](int band) { return gallery + (foot - gallery) * band / bands; };
    const auto half_width_at = [](int band) { return 2.6 + 2.2 * band / bands; };
    for (int band = 0; band < bands; ++band)
        stage.fill(trapezoid(x, height_at(band), half_width_at(band), height_at(band + 1),
                             half_width_at(band + 1)),
                   band % 2 == 0 ? 0xC8322B : 0xF7F4EC);
    const double lower_right = x + half_width_at(bands);
    stage.fill(
        {{x + 1.0, gallery}, {x + half_width_at(0), gallery}, {lower_right, foot}, {x + 1.8, foot}},
        QColor(0, 0, 0, 50));
    stage.fill(QRectF(x - 3.6, gallery - 0.8, 7.2, 0.9), 0x33363B);
    stage.fill(QRectF(x - 2.0, gallery - 4.6, 4.0, 3.9), 0xBFD5DD);
    stage.fill(trapezoid(x, gallery - 8.0, 0.0, gallery - 4.5, 2.7), 0xA9281F);
}

void paint_beams(Stage& stage) {
    const QColor light(0xFFF4C8);
    const QPointF lamp(lighthouse_x(stage), gallery - 2.6);
    const double turn = 2.0 * std::numbers::pi * progress(stage.moment(), 7.0, 0.4);
    const QPointF ahead(std::cos(turn) * 110.0, std::sin(turn) * 8.0);
    const QPointF aside(0.0, 1.0 + 8.0 * std::abs(std::cos(turn)));
    for (const double direction : {1.0, -1.0}) {
        const QPointF end = lamp + ahead * direction;
        QLinearGradient beam(lamp, end);
        beam.setColorAt(0.0, translucent(light, 0.65 * stage.darkness()));
        beam.setColorAt(1.0, translucent(light, 0.0));
        stage.painter().setBrush(beam);
        stage.painter().drawPolygon(Shape{lamp, end - aside, end + aside});
    }
    stage.lamp(lamp, 11.0, light);
}

void paint_gulls(Stage& stage) {
    for (unsigned gull = 0; gull < 6; ++gull) {
        const double x = stage.crossing(18.0 + 3.0 * gull, scattered(96, gull), 2.0);
        const QPointF body(x, 14.0 + 26.0 * scattered(97, gull) + 3.0 * std::sin(x * 0.1));
        const double flap = 0.9 * std::sin(stage.moment().frame * 1.9 + gull);
        for (const double side : {-1.7, 1.7})
            stage.line(body, body + QPointF(side, -flap), 0.3, 0xF0F1F2);
    }
}

} // namespace

void paint_lighthouse(Stage& stage) {
    paint_sky(stage, waterline);
    paint_cliff(stage);
    paint_keepers_house(stage);
    paint_tower(stage);
    paint_beams(stage);
    stage.mirror_in_water(waterline, 0x1E6F78);
    paint_gulls(stage);
    paint_sailing_boat(stage, {stage.crossing(24.0, 0.15, 8.0), waterline + 3.0}, 5.0, 0x39485A);
    paint_sailing_boat(stage, {stage.width() - stage.crossing(30.0, 0.45, 12.0), 86.0}, 12.0,
                       0xB23A48);
}

} // namespace lookfar::demo
