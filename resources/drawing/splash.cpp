#include "resources/drawing/splash.h"

#include "resources/drawing/emblem.h"
#include "resources/drawing/lettering.h"

#include <QPainter>

namespace lookfar::resources {

QImage draw_splash() {
    QImage image(320, 240, QImage::Format_RGB888);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setPen(QColor("#16345f"));
    draw_spread_text(painter, "LOOKFAR", QRectF(24, 10, 272, 42), 42);
    draw_emblem(painter, QRectF(106, 58, 108, 108));
    painter.setPen(QColor("#4a6a94"));
    painter.setFont(lettering(12, QFont::Normal));
    painter.drawText(QPointF(8, 230), LOOKFAR_HOMEPAGE);
    return image;
}

} // namespace lookfar::resources
