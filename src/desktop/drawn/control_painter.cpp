#include "desktop/drawn/control_painter.h"

#include "desktop/drawn/label_caption.h"
#include "desktop/drawn/reduced_picture.h"
#include "desktop/style/colours.h"
#include "desktop/style/fonts.h"
#include "desktop/style/geometry.h"
#include "desktop/style/glyphs.h"
#include "desktop/style/rimmed_text.h"
#include "desktop/style/texts.h"
#include "runtime/controls/images.h"
#include "runtime/controls/label.h"
#include "runtime/controls/shapes.h"

#include <QPaintDevice>
#include <QPainter>
#include <qdrawutil.h>

#include <algorithm>

namespace lookfar::desktop {

namespace {

/// Puts the painter back into the state that it had.
class PainterState {
  public:
    explicit PainterState(QPainter& painter) : painter_(painter) { painter_.save(); }
    PainterState(const PainterState&) = delete;
    PainterState& operator=(const PainterState&) = delete;
    ~PainterState() { painter_.restore(); }

  private:
    QPainter& painter_;
};

/// A picture that is far longer than wide, or the other way round, may be scaled to less than a
/// pixel; a line of it is shown all the same.
QRect picture_rectangle(const Image& image) {
    const QRect box = pixel_rectangle(image.bounds());
    const bool has_area = image.Width > 0 && image.Height > 0;
    return has_area ? QRect(box.topLeft(), box.size().expandedTo({1, 1})) : box;
}

QSize size_in_pixels(const PictureReference& picture) {
    return picture ? natural_size(*picture) : QSize();
}

QRectF centred_square(const QRectF& box) {
    const double side = std::min(box.width(), box.height());
    QRectF square(0, 0, side, side);
    square.moveCenter(box.center());
    return square;
}

} // namespace

void ControlPainter::visit(Label& label) {
    const PainterState state(painter_);
    const QRect box = pixel_rectangle(label.bounds());
    if (label.Design.Back == BackStyle::opaque)
        painter_.fillRect(box, screen_colour(label.BackColor, palette_));
    if (label.Design.Border == LabelBorder::fixed_single) {
        painter_.setPen(screen_colour(colour::window_text, palette_));
        painter_.drawRect(outline_of(box));
    }
    if (!label.Caption.get().empty())
        draw_caption(label);
}

void ControlPainter::draw_caption(const Label& label) {
    const QColor colour = caption_colour(label);
    if (is_symbol_font(label.Design.Font)) {
        draw_symbols(painter_, caption_box(label), shown_text(label.Caption.get()),
                     pixel_size(label.Design.Font), colour);
        return;
    }
    const LabelCaption caption(label);
    const auto draw_at = [&](const QPoint& offset) { caption.draw(painter_, offset); };
    if (label.Design.HasRim) {
        draw_rimmed(painter_, colour, draw_at);
        return;
    }
    painter_.setPen(colour);
    draw_at({});
}

/// The colours of a link are meant for a light ground, and the window's may be dark.
QColor ControlPainter::caption_colour(const Label& label) const {
    const QColor colour = screen_colour(label.ForeColor, palette_);
    return label.Design.Role == LabelRole::link
               ? readable_on(palette_.color(QPalette::Window), colour)
               : colour;
}

void ControlPainter::visit(Image& image) {
    const QRect box = picture_rectangle(image);
    const QRect natural(box.topLeft(), size_in_pixels(image.Picture));
    const QRect target = image.Stretch ? box : natural;
    draw_picture(image,
                 has_too_few_pixels(image, target) ? image.Design.FinePicture : image.Picture,
                 target);
}

bool ControlPainter::has_too_few_pixels(const Image& image, const QRect& target) const {
    return image.Design.FinePicture &&
           size_in_pixels(image.Picture).width() < device_size(target).width();
}

void ControlPainter::visit(PictureBox& box) {
    const PainterState state(painter_);
    const QRect area = pixel_rectangle(box.bounds());
    painter_.setClipRect(area, Qt::IntersectClip);
    draw_picture(box, box.Picture, {area.topLeft(), size_in_pixels(box.Picture)});
}

void ControlPainter::draw_picture(const Control& control, const PictureReference& picture,
                                  const QRect& target) {
    if (!picture || target.isEmpty())
        return;
    painter_.drawImage(target, pictures_.picture_for(control, picture, device_size(target)));
}

QSize ControlPainter::device_size(const QRect& target) const {
    return (QSizeF(target.size()) * painter_.device()->devicePixelRatioF()).toSize();
}

void ControlPainter::visit(Shape& shape) {
    const PainterState state(painter_);
    if (shape.DrawMode == DrawMode::merge_pen)
        painter_.setCompositionMode(QPainter::RasterOp_SourceOrDestination);
    if (shape.Design.Kind == ShapeKind::rectangle)
        draw_rectangle(shape);
    else
        draw_ellipse(shape);
}

void ControlPainter::draw_rectangle(const Shape& shape) {
    const QRect box = pixel_rectangle(shape.bounds());
    if (shape.Design.Fill == FillStyle::solid)
        painter_.fillRect(box, screen_colour(shape.FillColor, palette_));
    if (shape.Design.Border == BorderStyle::transparent)
        return;
    painter_.setPen(screen_colour(shape.BorderColor, palette_));
    painter_.drawRect(outline_of(box));
}

void ControlPainter::draw_ellipse(const Shape& shape) {
    QRectF box = exact_rectangle(shape.bounds());
    if (shape.Design.Kind == ShapeKind::circle)
        box = centred_square(box);
    const bool has_border = shape.Design.Border == BorderStyle::solid;
    if (has_border)
        box.adjust(0.5, 0.5, -0.5, -0.5);
    // A merge can only take a pixel whole, so its edges are not smoothed.
    painter_.setRenderHint(QPainter::Antialiasing, shape.DrawMode != DrawMode::merge_pen);
    painter_.setPen(has_border ? QPen(screen_colour(shape.BorderColor, palette_)) : Qt::NoPen);
    painter_.setBrush(shape.Design.Fill == FillStyle::solid
                          ? QBrush(screen_colour(shape.FillColor, palette_))
                          : Qt::NoBrush);
    painter_.drawEllipse(box);
}

void ControlPainter::visit(Line& line) {
    const PainterState state(painter_);
    painter_.setPen(screen_colour(line.BorderColor, palette_));
    painter_.drawLine(QPointF(to_pixels(line.X1), to_pixels(line.Y1)),
                      QPointF(to_pixels(line.X2), to_pixels(line.Y2)));
}

void ControlPainter::visit(Frame& frame) {
    constexpr int thinnest_rectangle = 4;
    constexpr bool sunken = true;
    const QRect box = pixel_rectangle(frame.bounds());
    if (box.height() < thinnest_rectangle)
        qDrawShadeLine(&painter_, box.topLeft(), box.topRight(), palette_, sunken);
    else if (box.width() < thinnest_rectangle)
        qDrawShadeLine(&painter_, box.topLeft(), box.bottomLeft(), palette_, sunken);
    else
        qDrawShadeRect(&painter_, box, palette_, sunken);
}

} // namespace lookfar::desktop
