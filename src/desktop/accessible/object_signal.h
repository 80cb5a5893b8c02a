#pragma once

class QAccessibleInterface;
class QString;

namespace lookfar::desktop {

/// Sends a signal of an object, with a value and a text, on the accessibility bus: one that Qt has
/// no event for, or an event that it does not pass on.
void send_object_signal(QAccessibleInterface& object, const QString& signal, const QString& detail,
                        int value, const QString& text);

} // namespace lookfar::desktop
