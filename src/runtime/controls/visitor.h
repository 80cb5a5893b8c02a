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

/// One case for every kind of control that is seen.
class ControlVisitor {
  public:
    virtual ~ControlVisitor() = default;

    virtual void visit(CheckBox& control) = 0;
    virtual void visit(ComboBox& control) = 0;
    virtual void visit(CommandButton& control) = 0;
    virtual void visit(Frame& control) = 0;
    virtual void visit(Image& control) = 0;
    virtual void visit(Label& control) = 0;
    virtual void visit(Line& control) = 0;
    virtual void visit(ListBox& control) = 0;
    virtual void visit(PictureBox& control) = 0;
    virtual void visit(Shape& control) = 0;
    virtual void visit(StatusBar& control) = 0;
    virtual void visit(TextBox& control) = 0;
    virtual void visit(UpDown& control) = 0;
};

} // namespace lookfar
