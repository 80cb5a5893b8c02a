#pragma once

#include "runtime/controls/control.h"

#include <string>

namespace lookfar {

/// The design values of a label.
struct LabelDesign {
    std::string Caption = {};
    Bounds At = {};
    bool Visible = true;
    Alignment Align = Alignment::left;
    BackStyle Back = BackStyle::opaque;
    LabelBorder Border = LabelBorder::none;
    Colour BackColor = colour::button_face;
    Colour ForeColor = colour::button_text;
    lookfar::Font Font = {};
    /// Whether the label takes the size of its caption, growing from its top left corner.
    bool AutoSize = false;
    /// Whether a label that sizes itself wraps a caption that would run over the window's right
    /// edge.
    bool StaysInWindow = false;
    /// Whether a label that sizes itself keeps its width: it wraps its caption and grows
    /// downwards, and never gets lower than it was designed.
    bool WordWrap = false;
    /// Whether a thin light rim sets the text off from whatever picture lies behind it.
    bool HasHalo = false;
    int TabIndex = 0;
    std::string ToolTipText = {};
};

/// A drawn text, which wraps at its width. A hidden one is often a state cell.
class Label : public BoxControl, public MouseEvents {
  public:
    Label(Form& owner, const LabelDesign& design);

    void accept(ControlVisitor& visitor) override;

    /// Whether the caption is wrapped at the label's width.
    bool wraps() const { return wraps_; }

    Property<std::string> Caption;
    Property<Colour> BackColor;
    Property<Colour> ForeColor;

    const Alignment Align;
    const BackStyle Back;
    const LabelBorder Border;
    const lookfar::Font Font;
    const bool AutoSize;
    const bool StaysInWindow;
    const bool WordWrap;
    const bool HasHalo;
    const int TabIndex;
    const std::string ToolTipText;

  private:
    void take_size_of_caption();

    bool wraps_;
    const float design_width_;
    const float design_height_;
};

} // namespace lookfar
