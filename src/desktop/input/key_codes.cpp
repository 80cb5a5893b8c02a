#include "desktop/input/key_codes.h"

#include "runtime/controls/text_box.h"

#include <algorithm>
#include <array>

namespace lookfar::desktop {

namespace {

struct KeyCode {
    Qt::Key key;
    short code;
};

constexpr std::array key_codes{
    KeyCode{Qt::Key_Backspace, 8}, KeyCode{Qt::Key_Tab, 9},
    KeyCode{Qt::Key_Return, 13},   KeyCode{Qt::Key_Enter, 13},
    KeyCode{Qt::Key_Shift, 16},    KeyCode{Qt::Key_Control, 17},
    KeyCode{Qt::Key_Alt, 18},      KeyCode{Qt::Key_Pause, 19},
    KeyCode{Qt::Key_Escape, 27},   KeyCode{Qt::Key_Space, 32},
    KeyCode{Qt::Key_PageUp, 33},   KeyCode{Qt::Key_PageDown, 34},
    KeyCode{Qt::Key_End, 35},      KeyCode{Qt::Key_Home, 36},
    KeyCode{Qt::Key_Left, 37},     KeyCode{Qt::Key_Up, key_code::up},
    KeyCode{Qt::Key_Right, 39},    KeyCode{Qt::Key_Down, key_code::down},
    KeyCode{Qt::Key_Insert, 45},   KeyCode{Qt::Key_Delete, 46},
    KeyCode{Qt::Key_Plus, 187},    KeyCode{Qt::Key_Comma, 188},
    KeyCode{Qt::Key_Minus, 189},   KeyCode{Qt::Key_Period, 190},
};

constexpr short first_function_key_code = 112;

bool stands_for_itself(Qt::Key key) {
    return (key >= Qt::Key_0 && key <= Qt::Key_9) || (key >= Qt::Key_A && key <= Qt::Key_Z);
}

} // namespace

short key_code_of(Qt::Key key) {
    if (stands_for_itself(key))
        return static_cast<short>(key);
    if (key >= Qt::Key_F1 && key <= Qt::Key_F12)
        return static_cast<short>(first_function_key_code + (key - Qt::Key_F1));
    const auto* const known = std::ranges::find(key_codes, key, &KeyCode::key);
    return known == key_codes.end() ? short{0} : known->code;
}

short shift_state_of(Qt::KeyboardModifiers modifiers) {
    constexpr int shift = 1;
    constexpr int control = 2;
    constexpr int alt = 4;
    return static_cast<short>((modifiers.testFlag(Qt::ShiftModifier) ? shift : 0) +
                              (modifiers.testFlag(Qt::ControlModifier) ? control : 0) +
                              (modifiers.testFlag(Qt::AltModifier) ? alt : 0));
}

} // namespace lookfar::desktop
