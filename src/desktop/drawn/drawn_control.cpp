#include "desktop/drawn/drawn_control.h"

#include "desktop/style/fonts.h"
#include "desktop/style/geometry.h"
#include "runtime/controls/images.h"
#include "runtime/controls/label.h"
#include "runtime/controls/shapes.h"

#include <algorithm>
#include <utility>

namespace lookfar::desktop {

namespace {

QRectF area_of(const BoxControl& control) {
    return exact_rectangle(control.bounds());
}

/// A line has no width of its own; one pixel around it holds its thickness.
QRectF area_of(const Line& line) {
    const QRectF between(QPointF(to_pixels(line.X1), to_pixels(line.Y1)),
                         QPointF(to_pixels(line.X2), to_pixels(line.Y2)));
    return between.normalized().adjusted(-1, -1, 1, 1);
}

/// A caption that is larger than its label's rectangle is shown whole all the same.
QRectF area_of(const Label& label) {
    QRectF area = exact_rectangle(label.bounds());
    if (label.wraps())
        return area;
    const Size size = measure_text(label.seen_caption(), label.Design.Font);
    area.setWidth(std::max(area.width(), to_pixels(size.Width)));
    area.setHeight(std::max(area.height(), to_pixels(size.Height)));
    return area;
}

class Describer : public ControlVisitor {
  public:
    using ControlVisitor::visit;

    void visit(Frame& frame) override { drawn_ = {.area = area_of(frame)}; }
    void visit(Shape& shape) override { drawn_ = {.area = area_of(shape)}; }
    void visit(Line& line) override { drawn_ = {.area = area_of(line)}; }

    void visit(Label& label) override {
        drawn_ = {.area = area_of(label), .mouse = &label, .tool_tip = label.Design.ToolTipText};
    }

    void visit(Image& image) override {
        drawn_ = {.area = area_of(image),
                  .mouse = &image,
                  .picture = image.Picture,
                  .tool_tip = image.Design.ToolTipText};
    }

    void visit(PictureBox& box) override {
        drawn_ = {.area = area_of(box), .mouse = &box, .picture = box.Picture};
    }

    std::optional<DrawnControl> result() { return std::move(drawn_); }

  private:
    std::optional<DrawnControl> drawn_;
};

} // namespace

std::optional<DrawnControl> drawn_control(Control& control) {
    Describer describer;
    control.accept(describer);
    return describer.result();
}

} // namespace lookfar::desktop
