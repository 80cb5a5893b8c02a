#pragma once

#include "demo/light.h"
#include "demo/moment.h"

#include <QImage>
#include <QPainter>
#include <vector>

namespace lookfar::demo {

/// The corners of a shape, in units of the stage.
using Shape = QList<QPointF>;

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
    double darkness() const { return light_.darkness; }
    QPainter& painter() { return painter_; }

    /// Where something is that crosses the picture from left to right every so many frames and
    /// comes from, and leaves for, so many units beside it.
    double crossing(double frames, double start, double beside) const;

    /// Painting in colours that take the light of the hour. The haze in front of a surface runs
    /// from 0 to 1.
    void fill(const Shape& shape, const QColor& surface, double haze = 0.0);
    void fill(const QRectF& shape, const QColor& surface);
    void fill_ellipse(QPointF centre, double radius_x, double radius_y, const QColor& surface);
    void line(QPointF from, QPointF to, double thickness, const QColor& surface);

    /// A light that shines by itself, with a soft rim; the strength runs from 0 to 1.
    void glow(QPointF centre, double radius, const QColor& colour, double strength);

    /// A lamp of that colour: it glows when it is dark.
    void lamp(QPointF centre, double radius, const QColor& colour = 0xFFCF80);

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
