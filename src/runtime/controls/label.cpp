#include "runtime/controls/label.h"

#include "runtime/controls/visitor.h"
#include "runtime/form.h"
#include "runtime/platform.h"
#include "runtime/runtime.h"

#include <algorithm>
#include <optional>

namespace lookfar {

Label::Label(Form& owner, const LabelDesign& design)
    : BoxControl(owner, design.At, design.Visible),
      Caption(*this, design.Caption, {.changed = [this] { take_size_of_caption(); }}),
      BackColor(*this, design.BackColor),
      ForeColor(*this, design.ForeColor),
      Align(design.Align),
      Back(design.Back),
      Border(design.Border),
      Font(design.Font),
      AutoSize(design.AutoSize),
      StaysInWindow(design.StaysInWindow),
      WordWrap(design.WordWrap),
      HasHalo(design.HasHalo),
      TabIndex(design.TabIndex),
      ToolTipText(design.ToolTipText),
      Role(design.Role),
      Announcement(design.Announcement),
      AccessibleName(design.AccessibleName),
      wraps_(!design.AutoSize || design.WordWrap),
      design_width_(design.At.Width),
      design_height_(design.At.Height) {}

void Label::accept(ControlVisitor& visitor) {
    visitor.visit(*this);
}

void Label::take_size_of_caption() {
    if (!AutoSize)
        return;
    const Platform& platform = runtime.platform();
    if (WordWrap) {
        Height = std::max(design_height_, platform.text_size(Caption, Font, Width).Height);
        return;
    }
    Size size = platform.text_size(Caption, Font, std::nullopt);
    const float room = std::max(form.Width - Left, design_width_);
    wraps_ = StaysInWindow && size.Width > room;
    if (wraps_)
        size = platform.text_size(Caption, Font, room);
    Width = size.Width;
    Height = size.Height;
}

} // namespace lookfar
