#include "demo/props.h"

#include <cmath>

namespace lookfar::demo {

namespace {

bool is_window_lit(const Stage& stage, unsigned seed, unsigned window) {
    constexpr unsigned frames_between_changes = 4;
    const auto shift = static_cast<unsigned>(scattered(seed, window) * frames_between_changes);
    const unsigned evening = (stage.moment().frame + shift) / frames_between_changes;
    return stage.darkness() > 0.25 + 1.1 * scattered(seed + evening, window);
}

} // namespace

Shape trapezoid(double middle, double top, double upper_half, double bottom, double lower_half) {
    return {{middle - upper_half, top},
            {middle + upper_half, top},
            {middle + lower_half, bottom},
            {middle - lower_half, bottom}};
}

void paint_windows(Stage& stage, const QRectF& wall, int columns, int rows, unsigned seed) {
    const QSizeF cell(wall.width() / columns, wall.height() / rows);
    for (int window = 0; window < columns * rows; ++window) {
        const int column = window % columns;
        const int row = window / columns;
        const QPointF corner(wall.x() + (column + 0.25) * cell.width(),
                             wall.y() + (row + 0.22) * cell.height());
        const QRectF pane(corner, QSizeF(cell.width() * 0.5, cell.height() * 0.56));
        const bool is_lit = is_window_lit(stage, seed, static_cast<unsigned>(window));
        stage.painter().fillRect(pane, is_lit ? QColor(0xFFD98A) : lit(0x4A5A6C, stage.light()));
    }
}

void paint_sailing_boat(Stage& stage, QPointF place, double size, const QColor& hull) {
    const auto at = [&](double x, double y) { return place + QPointF(x, y) * size; };
    stage.line(at(0.0, -0.15), at(0.0, -1.5), size * 0.035, 0x6A5138);
    stage.fill({at(-0.05, -1.45), at(-0.05, -0.28), at(-0.55, -0.28)}, 0xF4EFE2);
    stage.fill({at(0.05, -1.3), at(0.05, -0.28), at(0.5, -0.28)}, 0xDDD5C4);
    stage.fill({at(-0.65, -0.2), at(0.75, -0.24), at(0.5, 0.0), at(-0.5, 0.0)}, hull);
    stage.lamp(at(0.0, -1.5), size * 0.35, 0xFFE6B0);
}

void paint_hills(Stage& stage, double bottom, double height, unsigned seed, const QColor& colour) {
    Shape outline{{stage.width() + 1.0, bottom}, {0.0, bottom}};
    for (const double x : positions(0.0, stage.width() + 2.0, 1.0)) {
        const double swell =
            0.55 + 0.25 * std::sin(x * 0.045 + seed) + 0.2 * std::sin(x * 0.11 + seed * 2.0);
        outline << QPointF(x, bottom - height * swell);
    }
    stage.fill(outline, colour, 0.35);
}

} // namespace lookfar::demo
