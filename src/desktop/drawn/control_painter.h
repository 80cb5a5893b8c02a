#pragma once

#include "desktop/drawn/scaled_pictures.h"
#include "runtime/controls/visitor.h"

#include <QPalette>
#include <QRect>

class QPainter;

namespace lookfar {
class Control;
}

namespace lookfar::desktop {

/// Draws the controls that are not native widgets. What lies behind them must be opaque: shapes
/// merge with it bit by bit.
class ControlPainter : public ControlVisitor {
  public:
    using ControlVisitor::visit;

    ControlPainter(QPainter& painter, const QPalette& palette, ScaledPictures& pictures)
        : painter_(painter), palette_(palette), pictures_(pictures) {}

    void visit(Frame& frame) override;
    void visit(Image& image) override;
    void visit(Label& label) override;
    void visit(Line& line) override;
    void visit(PictureBox& box) override;
    void visit(Shape& shape) override;

  private:
    void draw_caption(const Label& label);
    QColor caption_colour(const Label& label) const;
    void draw_rectangle(const Shape& shape);
    void draw_ellipse(const Shape& shape);
    bool has_too_few_pixels(const Image& image, const QRect& target) const;
    /// In the pixels of the screen.
    QSize device_size(const QRect& target) const;
    void draw_picture(const Control& control, const PictureReference& picture, const QRect& target);

    QPainter& painter_;
    const QPalette& palette_;
    ScaledPictures& pictures_;
};

} // namespace lookfar::desktop
