#pragma once

#include <QFont>
#include <QPainter>
#include <QRectF>
#include <QString>

namespace lookfar::resources {

/// The typeface of all drawn texts.
QFont lettering(int pixel_size, QFont::Weight weight);

/// Draws bold letters over the whole width of the area, the first at its left edge, the last at
/// its right one, in the middle of its height.
void draw_spread_text(QPainter& painter, const QString& text, const QRectF& area, int pixel_size);

} // namespace lookfar::resources
