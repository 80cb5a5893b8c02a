#include "runtime/controls/buttons.h"

#include "runtime/controls/visitor.h"

namespace lookfar {

CommandButton::CommandButton(Form& owner, const CommandButtonDesign& design)
    : BoxControl(owner, design.At, design.Visible),
      Caption(*this, design.Caption),
      Default(design.Default),
      Font(design.Font),
      TabIndex(design.TabIndex),
      ToolTipText(design.ToolTipText),
      AccessibleName(design.AccessibleName) {}

void CommandButton::accept(ControlVisitor& visitor) {
    visitor.visit(*this);
}

CheckBox::CheckBox(Form& owner, const CheckBoxDesign& design)
    : BoxControl(owner, design.At, design.Visible),
      Caption(*this, design.Caption),
      Value(*this, design.Value, {.changed = [this] { Click.raise(); }}),
      TabIndex(design.TabIndex) {}

void CheckBox::accept(ControlVisitor& visitor) {
    visitor.visit(*this);
}

} // namespace lookfar
