#include "runtime/controls/label.h"

#include "runtime/controls/visitor.h"
#include "runtime/platform.h"
#include "runtime/runtime.h"

namespace lookfar {

Label::Label(Form& owner, const LabelDesign& design)
    : BoxControl(owner, design.At, design.Visible),
      Caption(*this, design.Caption, {.refuse = {}, .changed = [this] { take_size_of_caption(); }}),
      BackColor(*this, design.BackColor),
      ForeColor(*this, design.ForeColor),
      Align(design.Align),
      Back(design.Back),
      Border(design.Border),
      Font(design.Font),
      AutoSize(design.AutoSize),
      TabIndex(design.TabIndex),
      ToolTipText(design.ToolTipText) {}

void Label::accept(ControlVisitor& visitor) {
    visitor.visit(*this);
}

void Label::take_size_of_caption() {
    if (!AutoSize)
        return;
    const Size size = runtime.platform().text_size(Caption, Font);
    Width = size.Width;
    Height = size.Height;
}

} // namespace lookfar
