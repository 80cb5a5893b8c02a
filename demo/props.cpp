#include "demo/props.h"

#include <cmath>

namespace lookfar::demo {
namespace {

constexpr QRgb lamp_light = 0xFFD98A;

} // namespace

bool is_window_lit(const Stage& stage, unsigned seed, unsigned window) {
    constexpr unsigned frames_between_changes = 4;
    const auto shift = static_cast<unsigned>(scattered(seed, window) * frames_between_changes);
    const unsigned evening = (stage.moment().frame + shift) / frames_between_changes;
    const double threshold = 0.25 + 1.1 * scattered(seed + evening % 7 * 131, window);
    return stage.light().darkness > threshold;
}

void paint_windows(Stage& stage, const WindowGrid& grid) {
    const double cell_width = grid.wall.width() / grid.columns;
    const double cell_height = grid.wall.height() / grid.rows;
    for (int row = 0; row < grid.rows; ++row) {
        for (int column = 0; column < grid.columns; ++column) {
            const QRectF window(grid.wall.x() + (column + 0.25) * cell_width,
                                grid.wall.y() + (row + 0.22) * cell_height, cell_width * 0.5,
                                cell_height * 0.56);
            const auto index = static_cast<unsigned>(row * grid.columns + column);
            if (is_window_lit(stage, grid.seed, index)) {
                stage.painter().fillRect(window, QColor(lamp_light));
            } else {
                stage.fill(window, grid.glass);
            }
        }
    }
}

void paint_round_tree(Stage& stage, QPointF foot, double height, const QColor& leaves) {
    stage.fill(
        QRectF(foot.x() - height * 0.04, foot.y() - height * 0.45, height * 0.08, height * 0.45),
        QColor(0x5B4330));
    const QPointF crown = foot - QPointF(0.0, height * 0.65);
    const QColor shade = leaves.darker(125);
    stage.fill_ellipse(crown + QPointF(-height * 0.14, height * 0.06), height * 0.22, height * 0.24,
                       shade);
    stage.fill_ellipse(crown + QPointF(height * 0.14, height * 0.05), height * 0.22, height * 0.25,
                       shade);
    stage.fill_ellipse(crown, height * 0.27, height * 0.33, leaves);
    stage.fill_ellipse(crown - QPointF(height * 0.07, height * 0.1), height * 0.13, height * 0.15,
                       leaves.lighter(112));
}

void paint_pine(Stage& stage, QPointF foot, double height) {
    stage.fill(
        QRectF(foot.x() - height * 0.04, foot.y() - height * 0.2, height * 0.08, height * 0.2),
        QColor(0x4A3526));
    for (int tier = 0; tier < 3; ++tier) {
        const double base = foot.y() - height * (0.12 + 0.26 * tier);
        const double half_width = height * (0.25 - 0.06 * tier);
        const QPointF top(foot.x(), base - height * 0.4);
        stage.fill(QPolygonF({{foot.x() - half_width, base}, top, {foot.x() + half_width, base}}),
                   QColor(0x2C5138));
        stage.fill(QPolygonF({{foot.x(), base}, top, {foot.x() + half_width, base}}),
                   QColor(0x21402D));
    }
}

void paint_sailing_boat(Stage& stage, QPointF place, double size, const QColor& hull) {
    const double x = place.x();
    const double y = place.y();
    stage.line({x, y - size * 0.15}, {x, y - size * 1.5}, size * 0.035, QColor(0x6A5138));
    stage.fill(QPolygonF({{x - size * 0.05, y - size * 1.45},
                          {x - size * 0.05, y - size * 0.28},
                          {x - size * 0.55, y - size * 0.28}}),
               QColor(0xF4EFE2));
    stage.fill(QPolygonF({{x + size * 0.05, y - size * 1.3},
                          {x + size * 0.05, y - size * 0.28},
                          {x + size * 0.5, y - size * 0.28}}),
               QColor(0xDDD5C4));
    stage.fill(QPolygonF({{x - size * 0.65, y - size * 0.2},
                          {x + size * 0.75, y - size * 0.24},
                          {x + size * 0.5, y},
                          {x - size * 0.5, y}}),
               hull);
    if (stage.light().darkness > 0.4) {
        stage.glow({x, y - size * 1.5}, size * 0.35, QColor(0xFFE6B0), 0.9);
    }
}

void paint_car_from_side(Stage& stage, QPointF place, double length, const QColor& body) {
    const double x = place.x();
    const double y = place.y();
    stage.fill(QPolygonF({{x + length * 0.2, y - length * 0.25},
                          {x + length * 0.32, y - length * 0.42},
                          {x + length * 0.68, y - length * 0.42},
                          {x + length * 0.82, y - length * 0.25}}),
               QColor(0x3A4652));
    stage.fill(QRectF(x, y - length * 0.27, length, length * 0.19), body);
    for (const double wheel : {0.22, 0.78}) {
        stage.fill_ellipse({x + length * wheel, y - length * 0.07}, length * 0.09, length * 0.09,
                           QColor(0x1B1B1E));
    }
    if (stage.light().darkness > 0.3) {
        stage.glow({x + length, y - length * 0.18}, length * 0.5, QColor(0xFFF3C8), 0.9);
        stage.glow({x, y - length * 0.18}, length * 0.25, QColor(0xFF4030), 0.9);
    }
}

void paint_walker(Stage& stage, QPointF feet, double height, const QColor& clothes) {
    const double step = height * 0.12 * std::sin(stage.moment().frame * 2.1 + feet.y() * 7.0);
    const QPointF hips = feet - QPointF(0.0, height * 0.45);
    stage.line(hips, feet + QPointF(step, 0.0), height * 0.1, QColor(0x2B2D3A));
    stage.line(hips, feet - QPointF(step, 0.0), height * 0.1, QColor(0x2B2D3A));
    stage.line(hips, feet - QPointF(0.0, height * 0.72), height * 0.2, clothes);
    stage.fill_ellipse(feet - QPointF(0.0, height * 0.91), height * 0.09, height * 0.1,
                       QColor(0xE3B899));
}

void paint_hills(Stage& stage, double bottom, double height, unsigned seed, const QColor& colour) {
    QPolygonF outline(QList<QPointF>{{stage.width(), bottom}, {0.0, bottom}});
    for (const double x : positions(0.0, stage.width() + 1.0, 1.0)) {
        const double swell = 0.55 + 0.25 * std::sin(x * 0.045 + seed) +
                             0.15 * std::sin(x * 0.11 + seed * 2.0) +
                             0.05 * std::sin(x * 0.31 + seed * 3.0);
        outline << QPointF(x, bottom - height * swell);
    }
    stage.painter().setBrush(mixed(lit(colour, stage.light()), stage.light().horizon, 0.35));
    stage.painter().drawPolygon(outline);
}

void paint_skyline(Stage& stage, double bottom, double height, unsigned seed) {
    double x = -1.0;
    for (unsigned block = 0; x < stage.width(); ++block) {
        const double width = 4.0 + 5.0 * scattered(seed, block);
        const double tallness = std::pow(scattered(seed + 1, block), 1.6);
        const double top = bottom - height * (0.3 + 0.7 * tallness);
        const QRectF wall(x, top, width + 0.1, bottom - top);
        const QColor stone = mixed(QColor(0xA3B0C2), QColor(0xC7BAAE), scattered(seed + 2, block));
        stage.painter().fillRect(wall,
                                 mixed(lit(stone, stage.light()), stage.light().horizon, 0.25));
        paint_windows(stage, {wall.adjusted(0.3, 0.6, -0.3, -0.3), static_cast<int>(width / 1.4),
                              static_cast<int>(wall.height() / 2.2) + 1, seed * 100 + block,
                              QColor(0x8496AA)});
        x += width + 1.5 * scattered(seed + 3, block);
    }
}

} // namespace lookfar::demo
