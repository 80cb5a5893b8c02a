#pragma once

#include "runtime/controls/control.h"

#include <string>

namespace lookfar {

/// The keys that handlers know; all others are one to them.
enum class KeyCode : short {
    other = 0,
    up = 38,
    down = 40,
};

/// What the line breaks become that a user types or pastes into a text box.
enum class LineBreaks { blanks, nothing };

/// The design values of a text box.
struct TextBoxDesign {
    std::string Text = {};
    Bounds At = {};
    bool Visible = true;
    /// Whether nobody ever sees or hears of the box: it only holds state.
    bool IsNeverShown = false;
    bool HasBorder = true;
    Alignment Align = Alignment::left;
    /// Limits typing only, in characters; 0 for as many as the platform's box takes.
    int MaxLength = 0;
    lookfar::LineBreaks LineBreaks = lookfar::LineBreaks::blanks;
    Colour BackColor = colour::window_background;
    lookfar::Font Font = {};
    int TabIndex = 0;
    /// What assistive technology calls the box.
    std::string AccessibleName = {};
};

/// One line of text for typing into. Only a text that is written can hold line breaks. A write that
/// changes the text raises `Change`; one of the same text does not.
class TextBox : public ControlOf<TextBox, TextBoxDesign> {
  public:
    TextBox(Form& owner, const TextBoxDesign& design);

    /// Puts the keyboard focus into the box.
    void SetFocus();

    Property<std::string> Text;
    /// The selection: its first character and its count of characters, in units of UTF-16.
    Property<int> SelStart;
    Property<int> SelLength;

    Event<> Change;
    Event<> GotFocus;
    /// With the key and the sum of the keys held: 1 Shift, 2 Control, 4 Alt.
    Event<KeyCode, short> KeyDown;
};

} // namespace lookfar
