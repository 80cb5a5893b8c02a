#include "runtime/controls/label.h"

#include "runtime/controls/visitor.h"
#include "runtime/form.h"
#include "runtime/platform.h"
#include "runtime/runtime.h"

#include <algorithm>
#include <limits>

namespace lookfar {

Label::Label(Form& owner, const LabelDesign& design)
    : BoxControl(owner, design.At, design.Visible),
      Caption(*this, design.Caption, {.changed = [this] { follow_caption(); }}),
      Room(*this, std::numeric_limits<float>::max(), {.changed = [this] { follow_caption(); }}),
      BackColor(*this, design.BackColor),
      ForeColor(*this, design.ForeColor),
      IsNeverShown(design.IsNeverShown),
      Align(design.Align),
      Back(design.Back),
      Border(design.Border),
      Font(design.Font),
      Sizing(design.Sizing),
      HasRim(design.HasRim),
      TabIndex(design.TabIndex),
      ToolTipText(design.ToolTipText),
      Role(design.Role),
      Announcement(design.Announcement),
      AccessibleName(design.AccessibleName),
      CaptionWhenOpen(design.CaptionWhenOpen),
      wraps_(design.Sizing == LabelSizing::as_designed || design.Sizing == LabelSizing::downwards),
      design_width_(design.At.Width),
      design_height_(design.At.Height) {}

void Label::accept(ControlVisitor& visitor) {
    visitor.visit(*this);
}

std::string Label::seen_caption() const {
    std::string caption = Caption;
    if (Sizing == LabelSizing::to_caption_on_one_line)
        std::ranges::replace(caption, '\n', ' ');
    return caption;
}

std::optional<bool> Label::is_open() const {
    return CaptionWhenOpen.empty() ? std::nullopt : std::optional(Caption == CaptionWhenOpen);
}

void Label::follow_caption() {
    switch (Sizing) {
    case LabelSizing::as_designed:
        return;
    case LabelSizing::to_caption:
        return fit_caption();
    case LabelSizing::to_caption_in_window:
        return fit_caption_in_window();
    case LabelSizing::to_caption_on_one_line:
        return fit_caption_on_one_line();
    case LabelSizing::downwards:
        return grow_downwards();
    }
}

void Label::fit_caption() {
    take(runtime.platform().text_size(Caption, Font, std::nullopt));
}

void Label::fit_caption_in_window() {
    const float room = std::max(form.Width - Left, design_width_);
    const Size size = runtime.platform().text_size(Caption, Font, std::nullopt);
    wraps_ = size.Width > room;
    take(wraps_ ? runtime.platform().text_size(Caption, Font, room) : size);
}

void Label::fit_caption_on_one_line() {
    const Size size = runtime.platform().text_size(seen_caption(), Font, std::nullopt);
    is_shortened_ = size.Width > Room;
    take({.Width = std::clamp(Room.get(), 0.0F, size.Width), .Height = size.Height});
}

void Label::grow_downwards() {
    const Size size = runtime.platform().text_size(Caption, Font, Width);
    Height = std::max(design_height_, size.Height);
}

void Label::take(const Size& size) {
    Width = size.Width;
    Height = size.Height;
}

} // namespace lookfar
