#pragma once

#include <QColor>
#include <QIcon>
#include <QRectF>
#include <QString>

class QPainter;

namespace lookfar::desktop {

/// Draws a text of symbols, each a square of `size` logical pixels, one beside the other, centred
/// in the rectangle: "3" is an arrow to the left, "4" one to the right, "q" a circular arrow.
/// Other characters leave their square empty.
void draw_symbols(QPainter& painter, const QRectF& rectangle, const QString& symbols, int size,
                  const QColor& colour);

/// The same symbols as an icon, without any margin.
QIcon symbol_icon(const QString& symbols, int size, const QColor& colour, double pixel_ratio);

} // namespace lookfar::desktop
