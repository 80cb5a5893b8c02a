#include "runtime/controls/shapes.h"

#include "runtime/controls/visitor.h"

namespace lookfar {

Shape::Shape(Form& owner, const ShapeDesign& design)
    : BoxControl(owner, design.At, design.Visible),
      DrawMode(*this, design.DrawMode),
      BorderColor(*this, design.BorderColor),
      FillColor(*this, design.FillColor),
      Kind(design.Kind),
      Border(design.Border),
      Fill(design.Fill) {}

void Shape::accept(ControlVisitor& visitor) {
    visitor.visit(*this);
}

Line::Line(Form& owner, const LineDesign& design)
    : Control(owner, design.Visible),
      X1(*this, design.X1),
      Y1(*this, design.Y1),
      X2(*this, design.X2),
      Y2(*this, design.Y2),
      BorderColor(*this, design.BorderColor) {}

void Line::accept(ControlVisitor& visitor) {
    visitor.visit(*this);
}

Frame::Frame(Form& owner, const FrameDesign& design)
    : BoxControl(owner, design.At, true), TabIndex(design.TabIndex) {}

void Frame::accept(ControlVisitor& visitor) {
    visitor.visit(*this);
}

} // namespace lookfar
