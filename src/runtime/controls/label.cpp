#include "runtime/controls/label.h"

#include "runtime/form.h"
#include "runtime/runtime.h"
#include "runtime/window_system.h"

#include <algorithm>
#include <limits>

namespace lookfar {

Label::Label(Form& owner, const LabelDesign& design)
    : ControlOf(owner, design),
      Caption(*this, design.Caption, {.changed = [this] { size_to_caption(); }}),
      Room(*this, std::numeric_limits<float>::max(), {.changed = [this] { size_to_caption(); }}),
      BackColor(*this, design.BackColor),
      ForeColor(*this, design.ForeColor),
      wraps_(design.Sizing == LabelSizing::as_designed || design.Sizing == LabelSizing::downwards) {
}

std::string Label::seen_caption() const {
    std::string caption = Caption;
    if (Design.Sizing == LabelSizing::to_caption_on_one_line)
        std::ranges::replace(caption, '\n', ' ');
    return caption;
}

std::optional<bool> Label::is_open() const {
    return Design.CaptionWhenOpen.empty() ? std::nullopt
                                          : std::optional(Caption == Design.CaptionWhenOpen);
}

void Label::size_to_caption() {
    switch (Design.Sizing) {
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
    resize(runtime.windows().text_size(Caption, Design.Font, std::nullopt));
}

void Label::fit_caption_in_window() {
    const float room = std::max(form.Width - Left, Design.At.Width);
    const Size size = runtime.windows().text_size(Caption, Design.Font, std::nullopt);
    wraps_ = size.Width > room;
    resize(wraps_ ? runtime.windows().text_size(Caption, Design.Font, room) : size);
}

void Label::fit_caption_on_one_line() {
    const Size size = runtime.windows().text_size(seen_caption(), Design.Font, std::nullopt);
    is_shortened_ = size.Width > Room;
    resize({.Width = std::clamp(Room.get(), 0.0F, size.Width), .Height = size.Height});
}

void Label::grow_downwards() {
    const Size size = runtime.windows().text_size(Caption, Design.Font, Width);
    Height = std::max(Design.At.Height, size.Height);
}

void Label::resize(const Size& size) {
    Width = size.Width;
    Height = size.Height;
}

} // namespace lookfar
