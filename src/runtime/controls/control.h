#pragma once

#include "runtime/element.h"
#include "runtime/event.h"
#include "runtime/look.h"
#include "runtime/property.h"

#include <string>

namespace lookfar {

class ControlVisitor;
class Form;

/// Anything that is seen on a window. Controls are members of their window, declared front to
/// back: the order of declaration is the stacking order.
class Control : public Element {
  public:
    Control(Form& owner, bool visible);
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
};

/// A control with a rectangle, in twips from the window's top left corner.
class BoxControl : public Control {
  public:
    BoxControl(Form& owner, const Bounds& bounds, bool visible);

    Bounds bounds() const { return {Left, Top, Width, Height}; }

    Property<float> Left;
    Property<float> Top;
    Property<float> Width;
    Property<float> Height;
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
