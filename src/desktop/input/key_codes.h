#pragma once

#include <QtCore/qnamespace.h>

namespace lookfar::desktop {

/// The code under which handlers know a key; 0 for a key that has none.
short key_code_of(Qt::Key key);

/// The sum of the keys held: 1 Shift, 2 Control, 4 Alt.
short shift_state_of(Qt::KeyboardModifiers modifiers);

} // namespace lookfar::desktop
