#pragma once

#include "runtime/controls/control.h"

namespace lookfar {

/// The design values of a shape.
struct ShapeDesign {
    Bounds At = {};
    bool Visible = true;
    ShapeKind Kind = ShapeKind::rectangle;
    lookfar::DrawMode DrawMode = DrawMode::copy_pen;
    BorderStyle Border = BorderStyle::solid;
    Colour BorderColor = colour::black;
    FillStyle Fill = FillStyle::transparent;
    Colour FillColor = colour::black;
};

/// A rectangle, an oval that fills its box, or a circle centred in it whose diameter is the
/// smaller side. Takes no mouse events.
class Shape : public ControlOf<Shape, ShapeDesign> {
  public:
    Shape(Form& owner, const ShapeDesign& design);

    Property<lookfar::DrawMode> DrawMode;
    Property<Colour> BorderColor;
    Property<Colour> FillColor;
};

/// The design values of a line: its two ends, in twips.
struct LineDesign {
    float X1 = 0;
    float Y1 = 0;
    float X2 = 0;
    float Y2 = 0;
    bool Visible = true;
    Colour BorderColor = colour::window_text;
};

/// A straight line, one pixel thick. Takes no mouse events.
class Line : public ControlOf<Line, LineDesign, Control> {
  public:
    Line(Form& owner, const LineDesign& design);

    Property<float> X1;
    Property<float> Y1;
    Property<float> X2;
    Property<float> Y2;
    Property<Colour> BorderColor;
};

/// The design values of a frame.
struct FrameDesign {
    Bounds At = {};
    bool Visible = true;
    int TabIndex = 0;
};

/// An etched rectangle; a very thin one is a rule.
class Frame : public ControlOf<Frame, FrameDesign> {
  public:
    Frame(Form& owner, const FrameDesign& design) : ControlOf(owner, design) {}
};

} // namespace lookfar
