#include "demo/props.h"
#include "demo/scenes.h"
#include "demo/sky.h"

#include <QLinearGradient>
#include <array>
#include <cmath>

namespace lookfar::demo {
namespace {

constexpr double horizon = 58.0;

struct Lighthouse {
    double x = 0.0;
    double foot = 56.0;
    double top = 22.0;
};

Lighthouse lighthouse_on(const Stage& stage) {
    return {stage.width() * 0.72};
}

void paint_sea(Stage& stage) {
    QLinearGradient sea(0.0, horizon, 0.0, Stage::height);
    sea.setColorAt(0.0, mixed(lit(QColor(0x3F88A8), stage.light()), stage.light().horizon, 0.35));
    sea.setColorAt(1.0, lit(QColor(0x1E6F78), stage.light()));
    stage.painter().fillRect(QRectF(0.0, horizon, stage.width(), 42.0), sea);
    for (unsigned glint = 0; glint < 90; ++glint) {
        const double nearness = scattered(91, glint);
        const double x = progress(stage.moment(), 40.0, scattered(92, glint)) * stage.width();
        const double y = horizon + 0.6 + nearness * nearness * 30.0;
        stage.painter().fillRect(QRectF(x, y, 1.0 + 4.0 * nearness, 0.12 + 0.25 * nearness),
                                 translucent(stage.light().ambient, 0.25));
    }
}

void paint_cliff(Stage& stage) {
    const double left = stage.width() * 0.5;
    const double right = stage.width() + 1.0;
    stage.fill(QPolygonF({{left, 71.0},
                          {left + 3.0, 64.0},
                          {left + 8.0, 62.0},
                          {left + 10.0, 57.5},
                          {stage.width() * 0.66, 55.5},
                          {right, 53.0},
                          {right, 84.0},
                          {stage.width() * 0.75, 78.0}}),
               QColor(0x7D6B5D));
    stage.fill(QPolygonF({{left + 9.0, 58.5},
                          {stage.width() * 0.66, 55.0},
                          {right, 52.0},
                          {right, 59.0},
                          {stage.width() * 0.8, 59.0},
                          {left + 12.0, 61.0}}),
               QColor(0x6C9A50));
    for (unsigned crack = 0; crack < 14; ++crack) {
        const double x = stage.width() * (0.6 + 0.4 * scattered(93, crack));
        const double y = 62.0 + 8.0 * scattered(94, crack);
        stage.line({x, y}, {x - 1.5, y + 5.0}, 0.35, QColor(0x5F5046));
    }
}

void paint_beam(Stage& stage, QPointF lamp) {
    if (stage.light().darkness < 0.35) {
        return;
    }
    const double turn = progress(stage.moment(), 7.0, 0.4) * 6.2832;
    const QPointF ahead(std::cos(turn) * 110.0, std::sin(turn) * 8.0);
    const QPointF aside(0.0, 7.0 + 5.0 * std::abs(std::sin(turn)));
    for (const double direction : {1.0, -1.0}) {
        const QPointF end = lamp + ahead * direction;
        QLinearGradient beam(lamp, end);
        beam.setColorAt(0.0, QColor(255, 246, 205, 170));
        beam.setColorAt(1.0, QColor(255, 246, 205, 0));
        stage.painter().setBrush(beam);
        stage.painter().drawPolygon(QPolygonF({lamp, end - aside, end + aside}));
    }
    stage.glow(lamp, 11.0, QColor(0xFFF3C0), 1.0);
}

void paint_lighthouse(Stage& stage) {
    const Lighthouse house = lighthouse_on(stage);
    constexpr int bands = 6;
    for (int band = 0; band < bands; ++band) {
        const auto half_width = [](double share) { return 2.6 + 2.2 * share; };
        const double upper = static_cast<double>(band) / bands;
        const double lower = (band + 1.0) / bands;
        const double length = house.foot - house.top;
        const double top = house.top + upper * length;
        const double bottom = house.top + lower * length;
        const QColor paint(band % 2 == 0 ? 0xC8322BU : 0xF7F4ECU);
        stage.fill(QPolygonF({{house.x - half_width(upper), top},
                              {house.x + half_width(upper), top},
                              {house.x + half_width(lower), bottom},
                              {house.x - half_width(lower), bottom}}),
                   paint);
        stage.fill(QPolygonF({{house.x + half_width(upper) * 0.35, top},
                              {house.x + half_width(upper), top},
                              {house.x + half_width(lower), bottom},
                              {house.x + half_width(lower) * 0.35, bottom}}),
                   paint.darker(125));
    }
    stage.fill(QRectF(house.x - 3.6, house.top - 0.8, 7.2, 0.9), QColor(0x33363B));
    stage.fill(QRectF(house.x - 2.0, house.top - 4.6, 4.0, 3.9), QColor(0xBFD5DD));
    stage.fill(QPolygonF({{house.x - 2.7, house.top - 4.5},
                          {house.x, house.top - 8.0},
                          {house.x + 2.7, house.top - 4.5}}),
               QColor(0xA9281F));
    paint_beam(stage, {house.x, house.top - 2.6});
}

void paint_keepers_house(Stage& stage) {
    const double x = lighthouse_on(stage).x + 6.5;
    stage.fill(QRectF(x, 49.0, 12.0, 6.5), QColor(0xF1ECE0));
    stage.fill(QPolygonF({{x - 1.0, 49.0}, {x + 2.0, 45.0}, {x + 10.0, 45.0}, {x + 13.0, 49.0}}),
               QColor(0x8A4B3C));
    paint_windows(stage, {QRectF(x + 0.5, 49.4, 11.0, 4.6), 4, 1, 95});
}

void paint_beach(Stage& stage) {
    const double surf = 1.2 * std::sin(stage.moment().frame * 0.8);
    const auto edge = [&](double offset) {
        QPolygonF shape(QList<QPointF>{{stage.width() + 1.0, 101.0}, {-1.0, 101.0}});
        for (const double x : positions(-1.0, stage.width() + 2.0, 1.0)) {
            const double share = x / stage.width();
            shape << QPointF(x,
                             82.0 + 6.0 * share + 1.2 * std::sin(x * 0.14 + surf) + offset + surf);
        }
        return shape;
    };
    stage.fill(edge(-2.2), QColor(0x7FC0BF));
    stage.fill(edge(-0.6), QColor(0xF5F7F2));
    stage.fill(edge(0.2), QColor(0xC2A878));
    stage.fill(edge(2.4), QColor(0xE3CD9C));
}

void paint_parasols(Stage& stage) {
    constexpr std::array colours{0xE4572EU, 0x2E86ABU, 0xF3C53BU};
    for (unsigned parasol = 0; parasol < colours.size(); ++parasol) {
        const QPointF foot(stage.width() * (0.12 + 0.2 * parasol), 95.0 + 1.6 * parasol);
        const QPointF top = foot - QPointF(0.0, 8.0);
        stage.line(foot, top, 0.3, QColor(0xE8E2D4));
        stage.painter().setBrush(lit(QColor(colours[parasol]), stage.light()));
        stage.painter().drawPie(QRectF(top.x() - 5.0, top.y() - 2.6, 10.0, 7.0), 0, 180 * 16);
        stage.fill_ellipse(foot + QPointF(2.0, 0.6), 4.5, 0.6, QColor(0xC7B07F));
    }
}

void paint_gulls(Stage& stage) {
    for (unsigned gull = 0; gull < 6; ++gull) {
        const double way = progress(stage.moment(), 18.0 + 3.0 * gull, scattered(96, gull));
        const QPointF body(way * stage.width(),
                           16.0 + 26.0 * scattered(97, gull) + 3.0 * std::sin(way * 14.0));
        const double flap = 0.9 * std::sin(stage.moment().frame * 1.9 + gull);
        stage.line(body, body + QPointF(-1.7, -flap), 0.3, QColor(0xF4F4F4));
        stage.line(body, body + QPointF(1.7, -flap), 0.3, QColor(0xD8DADC));
    }
}

} // namespace

QImage draw_lighthouse(QSize size, const Moment& moment) {
    Stage stage(size, moment);
    paint_sky(stage, horizon);
    paint_sea(stage);
    const double way = progress(moment, 24.0, 0.15) * (stage.width() + 16.0) - 8.0;
    paint_sailing_boat(stage, {way, horizon + 2.5}, 5.0, QColor(0x39485A));
    paint_sailing_boat(stage, {stage.width() - way * 0.8, horizon + 12.0}, 9.0, QColor(0xB23A48));
    paint_cliff(stage);
    paint_keepers_house(stage);
    paint_lighthouse(stage);
    paint_beach(stage);
    paint_parasols(stage);
    paint_gulls(stage);
    return stage.take_picture();
}

} // namespace lookfar::demo
