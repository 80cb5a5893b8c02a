#pragma once

#include <QPainter>
#include <QRectF>

namespace lookfar::resources {

/// Draws the program's emblem, a lens that holds a far coast, as a disc that fills the square.
/// A small emblem has fewer details and a bolder rim than a large one.
void draw_emblem(QPainter& painter, const QRectF& square);

} // namespace lookfar::resources
