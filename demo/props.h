#pragma once

#include "demo/stage.h"

namespace lookfar::demo {

/// A grid of windows; at night some of them are lit, and others some frames later.
struct WindowGrid {
    QRectF wall;
    int columns = 1;
    int rows = 1;
    unsigned seed = 0;
    QColor glass = QColor(0x4A5A6C);
};
void paint_windows(Stage& stage, const WindowGrid& grid);

/// Whether the window is lit at this moment.
bool is_window_lit(const Stage& stage, unsigned seed, unsigned window);

/// Trees stand on their foot.
void paint_round_tree(Stage& stage, QPointF foot, double height, const QColor& leaves);
void paint_pine(Stage& stage, QPointF foot, double height);

/// A boat with mast and sail; the place is where the hull meets the water.
void paint_sailing_boat(Stage& stage, QPointF place, double size, const QColor& hull);

/// A car from the side, with its lamps on at night; it faces the right.
void paint_car_from_side(Stage& stage, QPointF place, double length, const QColor& body);

/// A walking figure, its feet at the place.
void paint_walker(Stage& stage, QPointF feet, double height, const QColor& clothes);

/// A row of hills along the bottom line, fixed by its seed.
void paint_hills(Stage& stage, double bottom, double height, unsigned seed, const QColor& colour);

/// A skyline of plain tower blocks that stand on the bottom line.
void paint_skyline(Stage& stage, double bottom, double height, unsigned seed);

} // namespace lookfar::demo
