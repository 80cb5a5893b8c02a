#pragma once

#include "runtime/message_box.h"

class QWidget;

namespace lookfar::desktop {

/// Shows the box and runs the message loop until it is answered. To close a box that asks for
/// yes or no is to answer no.
MessageBoxAnswer ask(const MessageBox& box, QWidget* parent);

} // namespace lookfar::desktop
