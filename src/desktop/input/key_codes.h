#pragma once

#include "runtime/controls/text_box.h"

#include <QtCore/qnamespace.h>

namespace lookfar::desktop {

/// The code under which handlers know a key.
KeyCode key_code_of(Qt::Key key);

/// The sum of the keys held: 1 Shift, 2 Control, 4 Alt.
short shift_state_of(Qt::KeyboardModifiers modifiers);

} // namespace lookfar::desktop
