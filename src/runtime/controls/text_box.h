#pragma once

#include "runtime/controls/control.h"

#include <string>

namespace lookfar {

/// The design values of a text box.
struct TextBoxDesign {
    std::string Text = {};
    Bounds At = {};
    bool Visible = true;
    bool HasBorder = true;
    Alignment Align = Alignment::left;
    /// Limits typing only, in characters; 0 for no limit.
    int MaxLength = 0;
    Colour BackColor = colour::window_background;
    lookfar::Font Font = {};
    int TabIndex = 0;
    /// What assistive technology calls the box.
    std::string AccessibleName = {};
};

/// One line of text for typing into. A write that changes the text raises `Change`; one of the
/// same text does not.
class TextBox : public BoxControl {
  public:
    TextBox(Form& owner, const TextBoxDesign& design);

    void accept(ControlVisitor& visitor) override;

    /// Puts the keyboard focus into the box.
    void SetFocus();

    Property<std::string> Text;
    /// The selection: its first character and its count of characters.
    Property<int> SelStart;
    Property<int> SelLength;

    Event<> Change;
    Event<> GotFocus;
    /// With the code of the key and the sum of the keys held: 1 Shift, 2 Control, 4 Alt.
    Event<short, short> KeyDown;

    const bool HasBorder;
    const Alignment Align;
    const int MaxLength;
    const Colour BackColor;
    const lookfar::Font Font;
    const int TabIndex;
    const std::string AccessibleName;
};

/// Codes of the keys that handlers ask for.
namespace key_code {
inline constexpr short up = 38;
inline constexpr short down = 40;
} // namespace key_code

} // namespace lookfar
