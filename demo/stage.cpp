#include "demo/stage.h"

#include <QRadialGradient>
#include <algorithm>
#include <cmath>
#include <span>

namespace lookfar::demo {
namespace {

constexpr QImage::Format pixel_format = QImage::Format_RGB32;

std::span<const QRgb> row_of(const QImage& image, int row) {
    const auto* pixels = reinterpret_cast<const QRgb*>(image.constScanLine(row));
    return {pixels, static_cast<std::size_t>(image.width())};
}

std::span<QRgb> row_of(QImage& image, int row) {
    auto* pixels = reinterpret_cast<QRgb*>(image.scanLine(row));
    return {pixels, static_cast<std::size_t>(image.width())};
}

QRgb blended(QRgb mirrored, const QColor& water, double share_of_water) {
    return mixed(QColor(mirrored), water, share_of_water).rgb();
}

} // namespace

Stage::Stage(QSize size, const Moment& moment)
    : moment_(moment),
      light_(light_at(moment)),
      image_(size, pixel_format),
      width_(height * size.width() / size.height()),
      painter_(&image_) {
    painter_.setRenderHint(QPainter::Antialiasing);
    painter_.setPen(Qt::NoPen);
    const double scale = size.height() / height;
    painter_.scale(scale, scale);
}

QImage Stage::take_picture() {
    painter_.end();
    return image_;
}

void Stage::fill(const QPolygonF& shape, const QColor& surface) {
    painter_.setBrush(lit(surface, light_));
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

void Stage::mirror_in_water(double waterline, const QColor& water) {
    const QImage above = image_.copy();
    const QColor water_colour = lit(water, light_);
    const int first_row = static_cast<int>(waterline / height * above.height());
    const int last_column = above.width() - 1;
    for (int row = first_row; row < above.height(); ++row) {
        const double depth = (row - first_row) * height / above.height();
        const double wave = std::sin(depth * 9.0 / (1.0 + depth * 0.09) + moment_.frame * 1.7) *
                            (0.12 + depth * 0.014);
        const int shift = static_cast<int>(std::lround(wave * above.height() / height));
        const auto source = row_of(above, std::max(0, 2 * first_row - row));
        const auto target = row_of(image_, row);
        for (int column = 0; column <= last_column; ++column) {
            const int mirrored = std::clamp(column + shift, 0, last_column);
            target[static_cast<std::size_t>(column)] =
                blended(source[static_cast<std::size_t>(mirrored)], water_colour,
                        0.35 + std::min(0.3, depth * 0.01));
        }
    }
    paint_ripples(waterline);
}

std::vector<double> positions(double first, double end, double step) {
    std::vector<double> result;
    const int count = std::max(0, static_cast<int>(std::ceil((end - first) / step)));
    result.reserve(static_cast<std::size_t>(count));
    for (int index = 0; index < count; ++index) {
        result.push_back(first + index * step);
    }
    return result;
}

void Stage::paint_ripples(double waterline) {
    const double depth_of_water = height - waterline;
    const int count = static_cast<int>(width_ * 1.2);
    for (int ripple = 0; ripple < count; ++ripple) {
        const auto index = static_cast<unsigned>(ripple);
        const double nearness = scattered(71, index);
        const double y = waterline + 0.5 + nearness * nearness * depth_of_water;
        const double x = progress(moment_, 60.0, scattered(72, index)) * width_;
        const double length = 1.0 + nearness * 6.0;
        const QColor foam = translucent(mixed(light_.horizon, light_.ambient, 0.5), 0.22);
        painter_.fillRect(QRectF(x, y, length, 0.1 + nearness * 0.25), foam);
    }
}

} // namespace lookfar::demo
