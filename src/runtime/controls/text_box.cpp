#include "runtime/controls/text_box.h"

#include "runtime/controls/visitor.h"
#include "runtime/platform.h"
#include "runtime/runtime.h"

namespace lookfar {

TextBox::TextBox(Form& owner, const TextBoxDesign& design)
    : BoxControl(owner, design.At, design.Visible),
      Text(*this, design.Text, {.changed = [this] { Change.raise(); }}),
      SelStart(*this, 0),
      SelLength(*this, 0),
      IsNeverShown(design.IsNeverShown),
      HasBorder(design.HasBorder),
      Align(design.Align),
      MaxLength(design.MaxLength),
      LineBreaks(design.LineBreaks),
      BackColor(design.BackColor),
      Font(design.Font),
      TabIndex(design.TabIndex),
      AccessibleName(design.AccessibleName) {}

void TextBox::accept(ControlVisitor& visitor) {
    visitor.visit(*this);
}

void TextBox::SetFocus() {
    runtime.platform().set_focus(*this);
}

} // namespace lookfar
