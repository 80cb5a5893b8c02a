#include "desktop/style/rimmed_text.h"

#include "desktop/style/colours.h"

#include <QPainter>

namespace lookfar::desktop {

void draw_rimmed(QPainter& painter, const QColor& colour,
                 const std::function<void(const QPoint& offset)>& draw_at) {
    painter.setPen(rim_colour(colour));
    for (const int right : {-1, 0, 1})
        for (const int down : {-1, 0, 1})
            if (right != 0 || down != 0)
                draw_at({right, down});
    painter.setPen(colour);
    draw_at({});
}

} // namespace lookfar::desktop
