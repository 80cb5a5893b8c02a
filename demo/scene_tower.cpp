#include "demo/props.h"
#include "demo/scenes.h"
#include "demo/sky.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace lookfar::demo {
namespace {

constexpr double ground = 80.0;
constexpr double tower_height = 70.0;
constexpr double first_platform = 0.18;
constexpr double second_platform = 0.36;
constexpr double top_platform = 0.86;
constexpr QRgb iron = 0x6E5745;

double height_at(double share) {
    return ground - share * tower_height;
}

/// The outline narrows fast at first, then slowly.
double half_width_at(double share) {
    return 14.0 * std::exp(-3.6 * share) + 0.5;
}

double inner_half_width_at(double share) {
    return half_width_at(share) * std::max(0.0, 0.55 - share * 0.75);
}

void paint_strut(Stage& stage, QPointF from, QPointF to, double thickness) {
    const QColor shine(0xFFC35A);
    const QColor colour =
        mixed(lit(QColor(iron), stage.light()), shine, stage.light().darkness * 0.85);
    stage.painter().setPen(QPen(colour, thickness, Qt::SolidLine, Qt::FlatCap));
    stage.painter().drawLine(from, to);
    stage.painter().setPen(Qt::NoPen);
}

struct Span {
    double lower;
    double upper;
};

/// A piece of lattice between two outlines, given at its lower and its upper end.
void paint_lattice(Stage& stage, Span heights, Span left, Span right) {
    const QPointF lower_left(left.lower, height_at(heights.lower));
    const QPointF upper_left(left.upper, height_at(heights.upper));
    const QPointF lower_right(right.lower, height_at(heights.lower));
    const QPointF upper_right(right.upper, height_at(heights.upper));
    QColor web =
        mixed(lit(QColor(iron), stage.light()), QColor(0xD98A2B), stage.light().darkness * 0.7);
    stage.painter().setBrush(translucent(web, 0.45));
    stage.painter().drawPolygon(QPolygonF({lower_left, upper_left, upper_right, lower_right}));
    paint_strut(stage, lower_left, upper_left, 0.55);
    paint_strut(stage, lower_right, upper_right, 0.55);
    paint_strut(stage, lower_left, upper_right, 0.25);
    paint_strut(stage, lower_right, upper_left, 0.25);
    paint_strut(stage, upper_left, upper_right, 0.22);
}

void paint_legs(Stage& stage, double middle) {
    constexpr int pieces = 10;
    for (int piece = 0; piece < pieces; ++piece) {
        const double lower = second_platform * piece / pieces;
        const double upper = second_platform * (piece + 1) / pieces;
        for (const double side : {-1.0, 1.0}) {
            paint_lattice(
                stage, {lower, upper},
                {middle + side * half_width_at(lower), middle + side * half_width_at(upper)},
                {middle + side * inner_half_width_at(lower),
                 middle + side * inner_half_width_at(upper)});
        }
    }
}

void paint_shaft(Stage& stage, double middle) {
    constexpr int pieces = 16;
    const double length = top_platform - second_platform;
    for (int piece = 0; piece < pieces; ++piece) {
        const double lower = second_platform + length * piece / pieces;
        const double upper = second_platform + length * (piece + 1) / pieces;
        paint_lattice(stage, {lower, upper},
                      {middle - half_width_at(lower), middle - half_width_at(upper)},
                      {middle + half_width_at(lower), middle + half_width_at(upper)});
    }
}

void paint_platform(Stage& stage, double middle, double share) {
    const double half = half_width_at(share) + 0.9;
    const double y = height_at(share);
    paint_strut(stage, {middle - half, y}, {middle + half, y}, 1.5);
    paint_strut(stage, {middle - half - 0.3, y - 1.0}, {middle + half + 0.3, y - 1.0}, 0.3);
}

void paint_arch(Stage& stage, double middle) {
    const double half = inner_half_width_at(0.02);
    const double rise = height_at(0.03) - height_at(first_platform - 0.03);
    constexpr int pieces = 16;
    const auto point = [&](int piece) {
        const double along = 2.0 * piece / pieces - 1.0;
        return QPointF(middle + half * along,
                       height_at(0.03) - rise * std::sqrt(1.0 - along * along));
    };
    for (int piece = 0; piece < pieces; ++piece) {
        paint_strut(stage, point(piece), point(piece + 1), 0.6);
    }
}

void paint_beacon(Stage& stage, double middle) {
    const QPointF lamp(middle, height_at(0.93));
    paint_strut(stage, {middle, height_at(top_platform)}, {middle, height_at(1.0)}, 0.5);
    if (stage.light().darkness < 0.5) {
        return;
    }
    const double turn = progress(stage.moment(), 9.0, 0.1) * 6.2832;
    const QPointF ahead(std::cos(turn) * 90.0, std::sin(turn) * 12.0 - 6.0);
    const QPointF aside(0.0, 6.0);
    QLinearGradient beam(lamp, lamp + ahead);
    beam.setColorAt(0.0, QColor(255, 244, 200, 150));
    beam.setColorAt(1.0, QColor(255, 244, 200, 0));
    stage.painter().setBrush(beam);
    stage.painter().drawPolygon(QPolygonF({lamp, lamp + ahead - aside, lamp + ahead + aside}));
    stage.glow(lamp, 5.0, QColor(0xFFF4C8), 0.9);
}

void paint_tower(Stage& stage) {
    const double middle = stage.width() / 2.0;
    if (stage.light().darkness > 0.3) {
        stage.glow({middle, height_at(0.2)}, 34.0, QColor(0xFFB347), 0.4 * stage.light().darkness);
    }
    paint_arch(stage, middle);
    paint_legs(stage, middle);
    paint_shaft(stage, middle);
    for (const double share : {first_platform, second_platform, top_platform}) {
        paint_platform(stage, middle, share);
    }
    paint_beacon(stage, middle);
}

void paint_lawn(Stage& stage) {
    const double middle = stage.width() / 2.0;
    stage.fill(QRectF(0.0, ground - 0.5, stage.width(), 21.0), QColor(0x5D8A48));
    stage.fill(QPolygonF({{middle - 6.0, ground - 0.5},
                          {middle + 6.0, ground - 0.5},
                          {middle + 20.0, 100.0},
                          {middle - 20.0, 100.0}}),
               QColor(0xD9C9A3));
    stage.fill(QPolygonF({{middle - 2.5, ground + 1.5},
                          {middle + 2.5, ground + 1.5},
                          {middle + 8.0, 100.0},
                          {middle - 8.0, 100.0}}),
               QColor(0x78A857));
}

void paint_avenue(Stage& stage) {
    const double middle = stage.width() / 2.0;
    for (unsigned row = 0; row < 6; ++row) {
        const double nearness = row / 5.0;
        const double y = ground + 0.5 + nearness * nearness * 15.0;
        const double distance = 19.0 + nearness * nearness * 22.0;
        const double height = 7.0 + nearness * nearness * 14.0;
        paint_round_tree(stage, {middle - distance, y}, height, QColor(0x47733A));
        paint_round_tree(stage, {middle + distance, y}, height, QColor(0x4E7D3F));
    }
}

void paint_strollers(Stage& stage) {
    constexpr std::array coats{0xC44536U, 0x3D5A80U, 0xE0B84CU, 0x6A4C93U, 0xEEEEEEU, 0x2A9D8FU};
    for (unsigned stroller = 0; stroller < 14; ++stroller) {
        const double way = progress(stage.moment(), 22.0, scattered(51, stroller));
        const double nearness = way * way;
        const double side = stroller % 2 == 0 ? -1.0 : 1.0;
        const double aside = (4.0 + 3.0 * scattered(52, stroller)) * (1.0 + nearness * 1.3);
        paint_walker(stage, {stage.width() / 2.0 + side * aside, ground + 1.0 + nearness * 18.0},
                     1.8 + nearness * 4.0, QColor(coats[stroller % coats.size()]));
    }
}

} // namespace

QImage draw_tower(QSize size, const Moment& moment) {
    Stage stage(size, moment);
    paint_sky(stage, ground);
    paint_skyline(stage, ground, 10.0, 61);
    paint_lawn(stage);
    paint_tower(stage);
    paint_strollers(stage);
    paint_avenue(stage);
    return stage.take_picture();
}

} // namespace lookfar::demo
