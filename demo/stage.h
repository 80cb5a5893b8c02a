#pragma once

#include "demo/light.h"
#include "demo/moment.h"

#include <QImage>
#include <QPainter>
#include <QPointF>
#include <QPolygonF>
#include <QRectF>
#include <QSize>
#include <vector>

namespace lookfar::demo {

/// A picture in the making. Whatever its size in pixels, it is 100 units high; x runs to the
/// right from 0 to width(), y downwards from 0 to 100.
class Stage {
  public:
    static constexpr double height = 100.0;

    Stage(QSize size, const Moment& moment);

    /// Ends the painting and gives the picture.
    QImage take_picture();

    double width() const { return width_; }
    const Moment& moment() const { return moment_; }
    const Light& light() const { return light_; }
    QPainter& painter() { return painter_; }

    /// Painting in colours that take the light of the hour.
    void fill(const QPolygonF& shape, const QColor& surface);
    void fill(const QRectF& shape, const QColor& surface);
    void fill_ellipse(QPointF centre, double radius_x, double radius_y, const QColor& surface);
    void line(QPointF from, QPointF to, double thickness, const QColor& surface);

    /// A light that shines by itself, with a soft rim; the strength runs from 0 to 1.
    void glow(QPointF centre, double radius, const QColor& colour, double strength);

    /// Turns what lies below the line into water that mirrors what lies above it.
    void mirror_in_water(double waterline, const QColor& water);

  private:
    void paint_ripples(double waterline);

    Moment moment_;
    Light light_;
    QImage image_;
    double width_;
    QPainter painter_;
};

/// Evenly spaced positions from the first up to, and without, the end.
std::vector<double> positions(double first, double end, double step);

} // namespace lookfar::demo
