#include "demo/props.h"
#include "demo/scenes.h"
#include "demo/sky.h"

#include <algorithm>
#include <array>

namespace lookfar::demo {
namespace {

constexpr double horizon = 58.0;
constexpr double runway_top = 70.0;
constexpr double runway_bottom = 78.0;

/// An aeroplane from the side, nose to the right, in units of its own length, drawn around its
/// middle and turned upwards by the given degrees.
void paint_aeroplane(Stage& stage, QPointF middle, double length, double climb,
                     const QColor& tail) {
    QPainter& painter = stage.painter();
    painter.save();
    painter.translate(middle);
    painter.rotate(-climb);
    painter.scale(length, length);
    stage.fill(QPolygonF({{-0.5, -0.03}, {-0.54, -0.2}, {-0.45, -0.2}, {-0.34, -0.05}}), tail);
    painter.setBrush(lit(QColor(0xF5F6F8), stage.light()));
    painter.drawRoundedRect(QRectF(-0.5, -0.06, 1.0, 0.115), 0.06, 0.06);
    painter.setBrush(lit(QColor(0xC9CED6), stage.light()));
    painter.drawRoundedRect(QRectF(-0.46, 0.02, 0.9, 0.035), 0.02, 0.02);
    stage.fill(QPolygonF({{0.08, 0.015}, {-0.06, 0.015}, {-0.26, 0.12}, {-0.2, 0.12}}),
               QColor(0x9AA3AF));
    stage.fill_ellipse({-0.02, 0.075}, 0.065, 0.028, QColor(0x5C6672));
    stage.fill(QPolygonF({{-0.4, -0.02}, {-0.5, -0.02}, {-0.56, 0.02}, {-0.52, 0.02}}),
               QColor(0x9AA3AF));
    stage.fill(QRectF(0.4, -0.04, 0.05, 0.025), QColor(0x2C3A4A));
    const bool cabin_lights = stage.light().darkness > 0.3;
    for (int window = 0; window < 18; ++window) {
        const QRectF pane(-0.38 + window * 0.04, -0.025, 0.014, 0.02);
        const QColor glass = cabin_lights ? QColor(0xFFE2A0) : lit(QColor(0x3C4B5C), stage.light());
        painter.fillRect(pane, glass);
    }
    if (cabin_lights) {
        stage.glow({0.5, 0.0}, 0.16, QColor(0xFFF6DC), 0.9);
        stage.glow({-0.53, -0.2}, 0.05, QColor(0xFF4A3A), 1.0);
    }
    painter.restore();
}

void paint_field(Stage& stage) {
    stage.fill(QRectF(0.0, horizon, stage.width(), 42.0), QColor(0x6E9652));
    stage.fill(QRectF(0.0, horizon + 3.0, stage.width(), 7.0), QColor(0xA6A7A6));
    stage.fill(QRectF(0.0, runway_top, stage.width(), runway_bottom - runway_top),
               QColor(0x55585E));
    const double middle = (runway_top + runway_bottom) / 2.0;
    for (const double x : positions(2.0, stage.width(), 9.0)) {
        stage.fill(QRectF(x, middle - 0.3, 5.0, 0.6), QColor(0xF0EEE6));
    }
    for (unsigned tuft = 0; tuft < 160; ++tuft) {
        const double y = runway_bottom + 1.5 + 20.0 * scattered(111, tuft);
        const double x = scattered(112, tuft) * stage.width();
        stage.line({x, y}, {x + 0.4, y - 1.2}, 0.22, QColor(0x567A3F));
    }
}

void paint_runway_lights(Stage& stage) {
    for (const double y : {runway_top - 0.4, runway_bottom + 0.6}) {
        for (const double x : positions(3.0, stage.width(), 8.0)) {
            stage.fill_ellipse({x, y}, 0.3, 0.3, QColor(0xDADADA));
            stage.glow({x, y}, 2.2, QColor(0xFFF0B8), stage.light().darkness);
        }
    }
}

void paint_terminal(Stage& stage) {
    const double left = stage.width() * 0.06;
    const double right = stage.width() * 0.6;
    const double roof = horizon - 10.0;
    stage.fill(
        QPolygonF(
            {{left, roof}, {right, roof - 2.8}, {right, horizon + 2.0}, {left, horizon + 2.0}}),
        QColor(0xD5DADF));
    stage.fill(QPolygonF({{left - 2.0, roof - 0.9},
                          {right + 3.0, roof - 4.0},
                          {right + 3.0, roof - 2.6},
                          {left - 2.0, roof + 0.8}}),
               QColor(0x8E99A6));
    const int columns = static_cast<int>((right - left) / 2.6);
    paint_windows(stage,
                  {QRectF(left + 0.5, roof + 1.6, right - left - 1.0, 8.0), columns, 3, 113});
}

void paint_control_tower(Stage& stage) {
    const double x = stage.width() * 0.7;
    stage.fill(
        QPolygonF(
            {{x - 2.0, horizon + 2.0}, {x - 1.5, 30.0}, {x + 1.5, 30.0}, {x + 2.0, horizon + 2.0}}),
        QColor(0xC4C8CC));
    stage.fill(QPolygonF({{x - 3.0, 30.0}, {x - 4.6, 25.0}, {x + 4.6, 25.0}, {x + 3.0, 30.0}}),
               QColor(0x3F6070));
    stage.fill(QRectF(x - 4.8, 23.8, 9.6, 1.4), QColor(0xE4E6E8));
    stage.line({x, 23.8}, {x, 18.0}, 0.3, QColor(0x555A60));
    if (stage.light().darkness > 0.3) {
        stage.glow({x, 27.5}, 8.0, QColor(0x9FE0F0), 0.6);
    }
    stage.glow({x, 18.0}, 2.5, QColor(0xFF3A2A), stage.moment().frame % 2 == 0 ? 1.0 : 0.25);
}

void paint_parked_aeroplanes(Stage& stage) {
    constexpr std::array tails{0xC1272DU, 0x1B6CA8U, 0xF2A900U};
    for (std::size_t gate = 0; gate < tails.size(); ++gate) {
        const double x = stage.width() * (0.16 + 0.19 * static_cast<double>(gate));
        paint_aeroplane(stage, {x, horizon + 4.0}, 19.0, 0.0, QColor(tails[gate]));
    }
}

void paint_service_cars(Stage& stage) {
    const double way = progress(stage.moment(), 13.0, 0.5) * (stage.width() + 8.0) - 4.0;
    paint_car_from_side(stage, {way, horizon + 9.0}, 4.5, QColor(0xF2C230));
    paint_car_from_side(stage, {stage.width() * 0.4 + way * 0.5, horizon + 9.4}, 4.0,
                        QColor(0xE8E8E8));
}

/// Rolls over the first part of the runway, then climbs out of the picture.
void paint_departure(Stage& stage) {
    const double way = progress(stage.moment(), 10.0, 0.25);
    const double airborne = std::max(0.0, way - 0.4) / 0.6;
    const QPointF middle(way * (stage.width() + 50.0) - 25.0,
                         runway_top + 1.0 - airborne * airborne * 75.0);
    paint_aeroplane(stage, middle, 30.0, std::min(16.0, airborne * 60.0), QColor(0x2A7F62));
}

void paint_arrival_far_away(Stage& stage) {
    const double way = progress(stage.moment(), 21.0, 0.6);
    paint_aeroplane(stage, {stage.width() * (1.1 - 1.2 * way), 12.0 + 14.0 * way}, -7.0, -4.0,
                    QColor(0x784BA0));
}

} // namespace

QImage draw_airport(QSize size, const Moment& moment) {
    Stage stage(size, moment);
    paint_sky(stage, horizon);
    paint_hills(stage, horizon, 12.0, 3, QColor(0x6F8F80));
    paint_arrival_far_away(stage);
    paint_field(stage);
    paint_control_tower(stage);
    paint_terminal(stage);
    paint_parked_aeroplanes(stage);
    paint_service_cars(stage);
    paint_runway_lights(stage);
    paint_departure(stage);
    return stage.take_picture();
}

} // namespace lookfar::demo
