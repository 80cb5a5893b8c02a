#pragma once

#include "runtime/controls/visitor.h"
#include "runtime/element.h"
#include "runtime/event.h"
#include "runtime/look.h"
#include "runtime/property.h"

#include <string>

namespace lookfar {

class Form;

/// Anything that is seen on a window. Controls are members of their window, declared front to
/// back: the order of declaration is the stacking order.
class Control : public Element {
  public:
    /// The values of the design are those of a kind of control; of all kinds, `Visible`.
    template <class Values>
    Control(Form& owner, const Values& design) : Control(owner, design.Visible) {}
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;
    ~Control() override;

    virtual void accept(ControlVisitor& visitor) = 0;

    /// Shows a text at the control, which the keyboard can be at and whose window is visible, until
    /// the user presses a key or a mouse button; returns at once.
    void ShowHint(const std::string& text);
    /// Has a screen reader say a text that the control shows, once it has finished what it is
    /// saying. Nothing happens while the window is hidden.
    void Announce(const std::string& text);

    Form& form;
    Property<bool> Visible;

  protected:
    Control(Form& owner, bool visible);
};

/// A control with a rectangle, in twips from the window's top left corner.
class BoxControl : public Control {
  public:
    /// Of the values of the design, `At` and `Visible`.
    template <class Values>
    BoxControl(Form& owner, const Values& design) : BoxControl(owner, design.At, design.Visible) {}

    Bounds bounds() const { return {Left, Top, Width, Height}; }

    Property<float> Left;
    Property<float> Top;
    Property<float> Width;
    Property<float> Height;

  protected:
    BoxControl(Form& owner, const Bounds& bounds, bool visible);
};

/// The base of a kind of control: keeps the values that it was designed with, which say all of it
/// that never changes.
template <class Kind, class Values, class Base = BoxControl>
class ControlOf : public Base {
  public:
    void accept(ControlVisitor& visitor) final { visitor.visit(static_cast<Kind&>(*this)); }

    const Values Design;

  private:
    friend Kind;
    ControlOf(Form& owner, const Values& design) : Base(owner, design), Design(design) {}
};

enum class MouseButton : short { left = 1, right = 2, middle = 4 };

/// What the mouse does to a window or to a drawn control.
struct MouseEvents {
    Event<> Click;
    Event<> DblClick;
    /// With the button that was pressed.
    Event<MouseButton> MouseDown;
    Event<> MouseMove;
    /// The left button was pressed over the target and is held, and the mouse pulls away.
    Event<> DragOut;
};

} // namespace lookfar
