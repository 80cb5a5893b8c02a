#include "runtime/controls/text_box.h"

#include "runtime/runtime.h"
#include "runtime/window_system.h"

namespace lookfar {

TextBox::TextBox(Form& owner, const TextBoxDesign& design)
    : ControlOf(owner, design),
      Text(*this, design.Text, {.changed = [this] { Change.raise(); }}),
      SelStart(*this, 0),
      SelLength(*this, 0) {}

void TextBox::SetFocus() {
    runtime.windows().set_focus(*this);
}

} // namespace lookfar
