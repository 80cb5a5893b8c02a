#include "runtime/controls/label.h"

#include "runtime/controls/visitor.h"
#include "runtime/platform.h"
#include "runtime/runtime.h"

#include <algorithm>
#include <optional>

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
      WordWrap(design.WordWrap),
      TabIndex(design.TabIndex),
      ToolTipText(design.ToolTipText),
      design_height_(design.At.Height) {}

void Label::accept(ControlVisitor& visitor) {
    visitor.visit(*this);
}

void Label::take_size_of_caption() {
    if (!AutoSize)
        return;
    const auto wrap_width = WordWrap ? std::optional(Width.get()) : std::nullopt;
    const Size size = runtime.platform().text_size(Caption, Font, wrap_width);
    if (WordWrap) {
        Height = std::max(design_height_, size.Height);
    } else {
        Width = size.Width;
        Height = size.Height;
    }
}

} // namespace lookfar
