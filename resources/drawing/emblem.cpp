#include "resources/drawing/emblem.h"

#include <QLinearGradient>
#include <QPainterPath>
#include <QPolygonF>
#include <QRadialGradient>

namespace lookfar::resources {

namespace {

// The emblem is drawn on a square of 256 units with the origin in the middle.
constexpr qreal half_of_square = 128;
constexpr qreal horizon = 34;
constexpr QPointF sun_centre(40, -26);

constexpr qreal smallest_with_brass = 22;
constexpr qreal smallest_with_details = 64;

QPainterPath disc(const QPointF& centre, qreal radius) {
    QPainterPath path;
    path.addEllipse(centre, radius, radius);
    return path;
}

QLinearGradient gradient(const QPointF& from, const QPointF& to, const QGradientStops& stops) {
    QLinearGradient result(from, to);
    result.setStops(stops);
    return result;
}

QLinearGradient slanting_gradient(const QColor& light, const QColor& dark) {
    return gradient({-90, -90}, {90, 90}, {{0, light}, {1, dark}});
}

void draw_barrel(QPainter& painter) {
    painter.fillPath(disc({}, 126), slanting_gradient("#3d5f96", "#0e1a33"));
}

void draw_brass_ring(QPainter& painter, qreal radius) {
    const QLinearGradient brass =
        gradient({-90, -90}, {90, 90},
                 {{0, "#fff0bd"}, {0.35, "#f2b544"}, {0.65, "#b8741c"}, {1, "#f7cf72"}});
    painter.fillPath(disc({}, radius), brass);
}

void draw_focus_marks(QPainter& painter) {
    constexpr int marks = 24;
    painter.save();
    painter.setPen(QPen(QColor("#a9c3ea"), 3, Qt::SolidLine, Qt::RoundCap));
    for (int mark = 0; mark < marks; ++mark) {
        const qreal inner_end = mark % 6 == 0 ? 112 : 115;
        painter.drawLine(QPointF(0, -inner_end), QPointF(0, -120));
        painter.rotate(360.0 / marks);
    }
    painter.restore();
}

/// What the lens shows of a shape. The painter clips nothing, since vector files have no clipping.
QPainterPath seen(const QPainterPath& lens, const QPolygonF& shape) {
    QPainterPath path;
    path.addPolygon(shape);
    return lens & path;
}

void draw_sky(QPainter& painter, const QPainterPath& lens) {
    const QLinearGradient sky =
        gradient({0, -100}, {0, horizon},
                 {{0, "#1667c9"}, {0.5, "#4fb4f0"}, {0.8, "#bfe6f7"}, {1, "#ffe9b8"}});
    painter.fillPath(seen(lens, QRectF(-128, -128, 256, 128 + horizon)), sky);
}

void draw_sun_glow(QPainter& painter, const QPainterPath& lens) {
    QRadialGradient glow(sun_centre, 70);
    glow.setStops({{0, QColor(255, 236, 150, 220)}, {1, QColor(255, 236, 150, 0)}});
    painter.fillPath(lens & disc(sun_centre, 70), glow);
}

void draw_sun(QPainter& painter, qreal radius) {
    painter.fillPath(disc(sun_centre, radius), QColor("#ffc21f"));
}

void draw_far_range(QPainter& painter, const QPainterPath& lens) {
    const QPolygonF range({{-128, 20},
                           {-92, -2},
                           {-70, 10},
                           {10, 14},
                           {44, -4},
                           {66, 10},
                           {92, 0},
                           {128, 22},
                           {128, horizon},
                           {-128, horizon}});
    painter.fillPath(seen(lens, range), QColor("#8fb3d9"));
}

void draw_mountain(QPainter& painter, const QPainterPath& lens) {
    const QPolygonF lit_side({{-28, -58}, {52, horizon}, {-116, horizon}});
    painter.fillPath(seen(lens, lit_side), QColor("#3d6a9c"));
    const QPolygonF shaded_side({{-28, -58}, {-40, -10}, {-26, horizon}, {-116, horizon}});
    painter.fillPath(seen(lens, shaded_side), QColor("#274a78"));
}

void draw_snow(QPainter& painter) {
    QPainterPath snow;
    snow.addPolygon(
        QPolygonF({{-28, -58}, {-3, -29}, {-16, -34}, {-26, -20}, {-37, -32}, {-53, -26}}));
    painter.fillPath(snow, QColor("#ffffff"));
}

void draw_sea(QPainter& painter, const QPainterPath& lens) {
    const QLinearGradient sea =
        gradient({0, horizon}, {0, 100}, {{0, "#2fa3b8"}, {0.4, "#137a9e"}, {1, "#0a4674"}});
    painter.fillPath(seen(lens, QRectF(-128, horizon, 256, 128 - horizon)), sea);
}

void draw_sunlight_on_the_sea(QPainter& painter, const QPainterPath& lens) {
    const QPainterPathStroker stroker(QPen(Qt::black, 5, Qt::SolidLine, Qt::RoundCap));
    for (int ripple = 0; ripple < 4; ++ripple) {
        const qreal half_width = 24.0 - 5.0 * ripple;
        const qreal y = horizon + 11 + 12.0 * ripple;
        QPainterPath line(QPointF(sun_centre.x() - half_width, y));
        line.lineTo(sun_centre.x() + half_width, y);
        painter.fillPath(lens & stroker.createStroke(line), QColor("#ffe28a"));
    }
}

void draw_glint(QPainter& painter, qreal radius) {
    const QPainterPath crescent = disc({}, radius - 5) - disc({18, 22}, radius + 4);
    painter.fillPath(crescent, QColor(255, 255, 255, 110));
}

void draw_inner_shadow(QPainter& painter, qreal radius) {
    QRadialGradient shadow(QPointF(), radius);
    shadow.setStops({{0.86, QColor(6, 20, 48, 0)}, {1, QColor(6, 20, 48, 120)}});
    painter.fillPath(disc({}, radius), shadow);
}

void draw_coast(QPainter& painter, qreal radius, bool has_details) {
    const QPainterPath lens = disc({}, radius);
    draw_sky(painter, lens);
    if (has_details)
        draw_sun_glow(painter, lens);
    draw_sun(painter, has_details ? 23 : 30);
    if (has_details)
        draw_far_range(painter, lens);
    draw_mountain(painter, lens);
    draw_snow(painter);
    draw_sea(painter, lens);
    if (has_details)
        draw_sunlight_on_the_sea(painter, lens);
}

void draw_large_emblem(QPainter& painter) {
    draw_barrel(painter);
    draw_focus_marks(painter);
    draw_brass_ring(painter, 107);
    painter.fillPath(disc({}, 97), QColor("#13213d"));
    draw_coast(painter, 93, true);
    draw_inner_shadow(painter, 93);
    draw_glint(painter, 93);
}

void draw_small_emblem(QPainter& painter, bool has_brass) {
    draw_barrel(painter);
    if (has_brass)
        draw_brass_ring(painter, 115);
    draw_coast(painter, has_brass ? 100 : 104, false);
}

} // namespace

void draw_emblem(QPainter& painter, const QRectF& square) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(square.center());
    painter.scale(square.width() / (2 * half_of_square), square.height() / (2 * half_of_square));
    if (square.width() >= smallest_with_details)
        draw_large_emblem(painter);
    else
        draw_small_emblem(painter, square.width() >= smallest_with_brass);
    painter.restore();
}

} // namespace lookfar::resources
