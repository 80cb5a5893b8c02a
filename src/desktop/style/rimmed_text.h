#pragma once

#include <functional>

class QColor;
class QPainter;
class QPoint;

namespace lookfar::desktop {

/// Draws a text in a colour, with a rim of a pixel around its letters that sets them off from
/// whatever lies behind: a light rim for a dark text and a dark one for a light text.
/// `draw_at` draws the text with the painter's pen, moved by an offset.
void draw_rimmed(QPainter& painter, const QColor& colour,
                 const std::function<void(const QPoint& offset)>& draw_at);

} // namespace lookfar::desktop
