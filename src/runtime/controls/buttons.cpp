#include "runtime/controls/buttons.h"

namespace lookfar {

CommandButton::CommandButton(Form& owner, const CommandButtonDesign& design)
    : ControlOf(owner, design), Caption(*this, design.Caption) {}

CheckBox::CheckBox(Form& owner, const CheckBoxDesign& design)
    : ControlOf(owner, design),
      Caption(*this, design.Caption),
      Value(*this, design.Value, {.changed = [this] { Click.raise(); }}) {}

} // namespace lookfar
