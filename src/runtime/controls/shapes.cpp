#include "runtime/controls/shapes.h"

namespace lookfar {

Shape::Shape(Form& owner, const ShapeDesign& design)
    : ControlOf(owner, design),
      DrawMode(*this, design.DrawMode),
      BorderColor(*this, design.BorderColor),
      FillColor(*this, design.FillColor) {}

Line::Line(Form& owner, const LineDesign& design)
    : ControlOf(owner, design),
      X1(*this, design.X1),
      Y1(*this, design.Y1),
      X2(*this, design.X2),
      Y2(*this, design.Y2),
      BorderColor(*this, design.BorderColor) {}

} // namespace lookfar
