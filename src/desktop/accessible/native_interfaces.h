#pragma once

class QAccessibleInterface;
class QObject;

namespace lookfar::desktop {

/// Makes what assistive technology reads of a native widget that is the program's own: a drawn
/// label that the keyboard can reach, a status bar or a pair of arrows. It is Qt's to destroy.
/// Null for any other object.
QAccessibleInterface* make_native_interface(QObject* object);

} // namespace lookfar::desktop
