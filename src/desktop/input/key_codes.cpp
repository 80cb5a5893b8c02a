#include "desktop/input/key_codes.h"

#include <algorithm>
#include <array>

namespace lookfar::desktop {

namespace {

struct NamedKey {
    Qt::Key key;
    KeyCode code;
};

constexpr std::array named_keys{
    NamedKey{Qt::Key_Backspace, KeyCode::backspace},
    NamedKey{Qt::Key_Tab, KeyCode::tab},
    NamedKey{Qt::Key_Return, KeyCode::enter},
    NamedKey{Qt::Key_Enter, KeyCode::enter},
    NamedKey{Qt::Key_Shift, KeyCode::shift},
    NamedKey{Qt::Key_Control, KeyCode::control},
    NamedKey{Qt::Key_Alt, KeyCode::alt},
    NamedKey{Qt::Key_Pause, KeyCode::pause},
    NamedKey{Qt::Key_Escape, KeyCode::escape},
    NamedKey{Qt::Key_Space, KeyCode::space},
    NamedKey{Qt::Key_PageUp, KeyCode::page_up},
    NamedKey{Qt::Key_PageDown, KeyCode::page_down},
    NamedKey{Qt::Key_End, KeyCode::end},
    NamedKey{Qt::Key_Home, KeyCode::home},
    NamedKey{Qt::Key_Left, KeyCode::left},
    NamedKey{Qt::Key_Up, KeyCode::up},
    NamedKey{Qt::Key_Right, KeyCode::right},
    NamedKey{Qt::Key_Down, KeyCode::down},
    NamedKey{Qt::Key_Insert, KeyCode::insert},
    NamedKey{Qt::Key_Delete, KeyCode::del},
    NamedKey{Qt::Key_Plus, KeyCode::plus},
    NamedKey{Qt::Key_Comma, KeyCode::comma},
    NamedKey{Qt::Key_Minus, KeyCode::minus},
    NamedKey{Qt::Key_Period, KeyCode::period},
};

bool stands_for_itself(Qt::Key key) {
    return (key >= Qt::Key_0 && key <= Qt::Key_9) || (key >= Qt::Key_A && key <= Qt::Key_Z);
}

} // namespace

KeyCode key_code_of(Qt::Key key) {
    if (stands_for_itself(key))
        return static_cast<KeyCode>(key);
    if (key >= Qt::Key_F1 && key <= Qt::Key_F12)
        return static_cast<KeyCode>(static_cast<int>(KeyCode::f1) + (key - Qt::Key_F1));
    const auto* const known = std::ranges::find(named_keys, key, &NamedKey::key);
    return known == named_keys.end() ? KeyCode::none : known->code;
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
