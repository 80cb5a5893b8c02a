#include "desktop/style/glyphs.h"

#include <QPainter>
#include <QPainterPath>
#include <QPainterPathStroker>
#include <QPixmap>

namespace lookfar::desktop {

namespace {

/// All paths lie in the unit square.
QPainterPath triangle(QPointF tip, QPointF first, QPointF second) {
    QPainterPath path;
    path.addPolygon(QPolygonF({tip, first, second, tip}));
    return path;
}

/// Three quarters of a ring, open at the top right, with the head of an arrow at its end.
QPainterPath circular_arrow() {
    const QRectF circle(0.16, 0.16, 0.68, 0.68);
    constexpr double start = 20;
    constexpr double three_quarters = -290;
    QPainterPath arc;
    arc.arcMoveTo(circle, start);
    arc.arcTo(circle, start, three_quarters);
    QPainterPathStroker stroker;
    stroker.setWidth(0.13);
    stroker.setCapStyle(Qt::FlatCap);
    return stroker.createStroke(arc).united(triangle({0.86, 0.24}, {0.52, 0.40}, {0.48, 0.0}));
}

QPainterPath symbol_path(QChar symbol) {
    switch (symbol.unicode()) {
    case u'3':
        return triangle({0.22, 0.5}, {0.72, 0.06}, {0.72, 0.94});
    case u'4':
        return triangle({0.78, 0.5}, {0.28, 0.06}, {0.28, 0.94});
    case u'q':
        return circular_arrow();
    default:
        return {};
    }
}

} // namespace

void draw_symbols(QPainter& painter, const QRectF& rectangle, const QString& symbols, int size,
                  const QColor& colour) {
    const double width = static_cast<double>(symbols.size()) * size;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(rectangle.left() + (rectangle.width() - width) / 2,
                      rectangle.top() + (rectangle.height() - size) / 2);
    painter.scale(size, size);
    for (const QChar symbol : symbols) {
        painter.fillPath(symbol_path(symbol), colour);
        painter.translate(1, 0);
    }
    painter.restore();
}

QIcon symbol_icon(const QString& symbols, int size, const QColor& colour, double pixel_ratio) {
    const QSize shape(static_cast<int>(symbols.size()) * size, size);
    QPixmap pixmap((QSizeF(shape) * pixel_ratio).toSize());
    pixmap.setDevicePixelRatio(pixel_ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    draw_symbols(painter, QRectF(QPointF(), shape), symbols, size, colour);
    painter.end();
    return QIcon(pixmap);
}

} // namespace lookfar::desktop
