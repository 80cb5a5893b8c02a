#include "demo/stage.h"

#include <QRadialGradient>
#include <algorithm>
#include <cmath>

namespace lookfar::demo {

Stage::Stage(QSize size, const Moment& moment)
    : moment_(moment),
      light_(light_at(moment)),
      image_(size, QImage::Format_RGB32),
      width_(height * size.width() / size.height()),
      painter_(&image_) {
    painter_.setRenderHint(QPainter::Antialiasing);
    painter_.setPen(Qt::NoPen);
    painter_.scale(size.height() / height, size.height() / height);
}

QImage Stage::take_picture() {
    painter_.end();
    return image_;
}

double Stage::crossing(double frames, double start, double beside) const {
    return progress(moment_, frames, start) * (width_ + 2.0 * beside) - beside;
}

void Stage::fill(const Shape& shape, const QColor& surface, double haze) {
    painter_.setBrush(mixed(lit(surface, light_), light_.horizon, haze));
    painter_.drawPolygon(shape);
}

void Stage::fill(const QRectF& shape, const QColor& surface) {
    painter_.fillRect(shape, lit(surface, light_));
}

void Stage::fill_ellipse(QPointF centre, double radius_x, double radius_y, const QColor& surface) {
    painter_.setBrush(lit(surface, light_));
    painter_.drawEllipse(centre, radius_x, radius_y);
}

void Stage::line(QPointF from, QPointF to, double thickness, const QColor& surface) {
    painter_.setPen(QPen(lit(surface, light_), thickness, Qt::SolidLine, Qt::RoundCap));
    painter_.drawLine(from, to);
    painter_.setPen(Qt::NoPen);
}

void Stage::glow(QPointF centre, double radius, const QColor& colour, double strength) {
    QRadialGradient gradient(centre, radius);
    gradient.setColorAt(0.0, translucent(colour, strength));
    gradient.setColorAt(0.25, translucent(colour, strength * 0.45));
    gradient.setColorAt(1.0, translucent(colour, 0.0));
    painter_.setBrush(gradient);
    painter_.drawEllipse(centre, radius, radius);
}

void Stage::lamp(QPointF centre, double radius, const QColor& colour) {
    if (light_.darkness > 0.3)
        glow(centre, radius, colour, 0.95);
}

void Stage::mirror_in_water(double waterline, const QColor& water) {
    const QImage above = image_.copy();
    const double scale = above.height() / height;
    const int first_row = static_cast<int>(waterline * scale);
    painter_.save();
    painter_.resetTransform();
    for (int row = first_row; row < above.height(); ++row) {
        const double depth = (row - first_row) / scale;
        const double wave = std::sin(depth * 9.0 / (1.0 + depth * 0.09) + moment_.frame * 1.7);
        const int shift = static_cast<int>(std::lround(wave * (0.12 + depth * 0.014) * scale));
        const QRect mirrored(0, std::max(0, 2 * first_row - row), above.width(), 1);
        // The row itself shows at the edge that the shifted one leaves free.
        for (const int x : {0, shift})
            painter_.drawImage(QPoint(x, row), above, mirrored);
        painter_.fillRect(mirrored.translated(0, row - mirrored.y()),
                          translucent(lit(water, light_), 0.35 + std::min(0.3, depth * 0.01)));
    }
    painter_.restore();
    paint_ripples(waterline);
}

void Stage::paint_ripples(double waterline) {
    const auto count = static_cast<unsigned>(width_ * 1.2);
    const QColor foam = translucent(mixed(light_.horizon, light_.ambient, 0.5), 0.22);
    for (unsigned ripple = 0; ripple < count; ++ripple) {
        const double nearness = scattered(71, ripple);
        const double y = waterline + 0.5 + nearness * nearness * (height - waterline);
        const double x = crossing(60.0, scattered(72, ripple), 0.0);
        painter_.fillRect(QRectF(x, y, 1.0 + nearness * 6.0, 0.1 + nearness * 0.25), foam);
    }
}

std::vector<double> positions(double first, double end, double step) {
    std::vector<double> result;
    for (int index = 0; first + index * step < end; ++index)
        result.push_back(first + index * step);
    return result;
}

} // namespace lookfar::demo
