#pragma once

#include "runtime/controls/control.h"

#include <optional>
#include <string>

namespace lookfar {

/// What a label is to its user. A button or a link is operated by its click; it is a stop of the
/// tab key, and Space or Enter clicks it too.
enum class LabelRole { text, button, link };

/// How a label takes its size.
enum class LabelSizing {
    /// It keeps the size that it was designed with, and wraps its caption at its width.
    as_designed,
    /// It takes the size of its caption, growing from its top left corner.
    to_caption,
    /// The same, but it wraps a caption that would run over the window's right edge.
    to_caption_in_window,
    /// It takes the size of its caption, which stands on one line and ends in an ellipsis where the
    /// label has no more room.
    to_caption_on_one_line,
    /// It keeps its width, wraps its caption and grows downwards; it never gets lower than it was
    /// designed.
    downwards,
};

/// The design values of a label.
struct LabelDesign {
    std::string Caption = {};
    Bounds At = {};
    bool Visible = true;
    /// Whether nobody ever sees or hears of the label: it only holds state.
    bool IsNeverShown = false;
    Alignment Align = Alignment::left;
    BackStyle Back = BackStyle::opaque;
    LabelBorder Border = LabelBorder::none;
    Colour BackColor = colour::button_face;
    Colour ForeColor = colour::button_text;
    lookfar::Font Font = {};
    LabelSizing Sizing = LabelSizing::as_designed;
    /// Whether a thin rim, light or dark, sets the text off from whatever lies behind it.
    bool HasRim = false;
    int TabIndex = 0;
    std::string ToolTipText = {};
    LabelRole Role = LabelRole::text;
    lookfar::Announcement Announcement = lookfar::Announcement::none;
    /// What assistive technology calls the label; its caption where this is empty.
    std::string AccessibleName = {};
    /// Of a button that opens and closes a part of its window, its caption while that is open;
    /// empty for any other label.
    std::string CaptionWhenOpen = {};
};

/// A drawn text, which wraps at its width, or a state cell.
class Label : public ControlOf<Label, LabelDesign>, public MouseEvents {
  public:
    Label(Form& owner, const LabelDesign& design);

    /// Whether the caption is wrapped at the label's width.
    bool wraps() const { return wraps_; }
    /// Whether the caption is longer than the one line that there is room for.
    bool is_shortened() const { return is_shortened_; }
    /// What is to be seen of the caption where there is room: on one line blanks stand for its line
    /// feeds.
    std::string seen_caption() const;
    /// Whether the part of the window that the label opens and closes is open; nothing for a label
    /// that does not.
    std::optional<bool> is_open() const;

    Property<std::string> Caption;
    /// The width, in twips, that a caption on one line may take; without bound at first.
    Property<float> Room;
    Property<Colour> BackColor;
    Property<Colour> ForeColor;

  private:
    void size_to_caption();
    void fit_caption();
    void fit_caption_in_window();
    void fit_caption_on_one_line();
    void grow_downwards();
    void resize(const Size& size);

    bool wraps_;
    bool is_shortened_ = false;
};

} // namespace lookfar
