#include "desktop/input/key_codes.h"

namespace lookfar::desktop {

KeyCode key_code_of(Qt::Key key) {
    switch (key) {
    case Qt::Key_Up:
        return KeyCode::up;
    case Qt::Key_Down:
        return KeyCode::down;
    default:
        return KeyCode::other;
    }
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
