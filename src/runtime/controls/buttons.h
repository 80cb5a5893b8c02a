#pragma once

#include "runtime/controls/control.h"

#include <string>

namespace lookfar {

/// The design values of a command button.
struct CommandButtonDesign {
    /// `&` marks the access key.
    std::string Caption = {};
    Bounds At = {};
    bool Visible = true;
    /// Whether Enter presses it from anywhere on the window.
    bool Default = false;
    lookfar::Font Font = {};
    int TabIndex = 0;
    std::string ToolTipText = {};
    /// What assistive technology calls the button; empty for the caption.
    std::string AccessibleName = {};
};

class CommandButton : public ControlOf<CommandButton, CommandButtonDesign> {
  public:
    CommandButton(Form& owner, const CommandButtonDesign& design);

    Property<std::string> Caption;
    Event<> Click;
};

/// The design values of a check box.
struct CheckBoxDesign {
    std::string Caption = {};
    Bounds At = {};
    bool Visible = true;
    short Value = 0;
    int TabIndex = 0;
};

/// A box whose `Value` is 1 when it is ticked and 0 when it is not. A change of the value raises
/// `Click`, whether the user makes it or a handler.
class CheckBox : public ControlOf<CheckBox, CheckBoxDesign> {
  public:
    CheckBox(Form& owner, const CheckBoxDesign& design);

    Property<std::string> Caption;
    Property<short> Value;
    Event<> Click;
};

} // namespace lookfar
