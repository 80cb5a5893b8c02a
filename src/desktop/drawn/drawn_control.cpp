#include "desktop/drawn/drawn_control.h"

#include "desktop/drawn/drawn_control_visitor.h"
#include "desktop/style/fonts.h"
#include "desktop/style/geometry.h"
#include "desktop/style/texts.h"
#include "runtime/controls/images.h"
#include "runtime/controls/label.h"
#include "runtime/controls/shapes.h"

#include <algorithm>
#include <utility>

namespace lookfar::desktop {

namespace {

using Role = DrawnControl::Role;

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

class Describer : public DrawnControlVisitor {
  public:
    using DrawnControlVisitor::visit;

    void visit(Frame& frame) override { describe(frame); }
    void visit(Shape& shape) override { describe(shape); }

    void visit(Line& line) override {
        drawn_ = DrawnControl{.control = &line, .area = area_of(line)};
    }

    void visit(Label& label) override {
        DrawnControl& drawn = describe(label);
        // A button or a link is read by the widget at which the keyboard stops.
        const bool is_text = label.Design.Role == LabelRole::text && !label.Design.IsNeverShown;
        drawn.role = is_text ? Role::text : Role::decoration;
        drawn.area = area_of(label);
        drawn.mouse = &label;
        drawn.tool_tip = label.Design.ToolTipText;
        drawn.name = name_or(label.Design.AccessibleName, label.Caption);
        drawn.announcement = label.Design.Announcement;
    }

    void visit(Image& image) override {
        DrawnControl& drawn = describe(image);
        drawn.role = image.Design.IsNeverShown ? Role::decoration : Role::picture;
        drawn.mouse = &image;
        drawn.picture = image.Picture;
        drawn.tool_tip = image.Design.ToolTipText;
        drawn.name = name_or(image.AccessibleName.get(), image.Design.ToolTipText);
    }

    void visit(PictureBox& box) override {
        DrawnControl& drawn = describe(box);
        drawn.mouse = &box;
        drawn.picture = box.Picture;
    }

    std::optional<DrawnControl> take() { return std::move(drawn_); }

  private:
    DrawnControl& describe(BoxControl& control) {
        return drawn_.emplace(
            DrawnControl{.control = &control, .area = exact_rectangle(control.bounds())});
    }

    std::optional<DrawnControl> drawn_;
};

} // namespace

std::optional<DrawnControl> drawn_control(Control& control) {
    Describer describer;
    control.accept(describer);
    return describer.take();
}

} // namespace lookfar::desktop
