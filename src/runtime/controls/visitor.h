#pragma once

namespace lookfar {

class CheckBox;
class ComboBox;
class CommandButton;
class Frame;
class Image;
class Label;
class Line;
class ListBox;
class PictureBox;
class Shape;
class StatusBar;
class TextBox;
class UpDown;

/// One case for each kind of control that is seen; a visitor passes over those of which it has
/// none.
class ControlVisitor {
  public:
    virtual ~ControlVisitor() = default;

    virtual void visit(CheckBox&) {}
    virtual void visit(ComboBox&) {}
    virtual void visit(CommandButton&) {}
    virtual void visit(Frame&) {}
    virtual void visit(Image&) {}
    virtual void visit(Label&) {}
    virtual void visit(Line&) {}
    virtual void visit(ListBox&) {}
    virtual void visit(PictureBox&) {}
    virtual void visit(Shape&) {}
    virtual void visit(StatusBar&) {}
    virtual void visit(TextBox&) {}
    virtual void visit(UpDown&) {}
};

} // namespace lookfar
