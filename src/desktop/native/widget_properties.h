#pragma once

#include <QColor>
#include <QPalette>
#include <QString>

class QWidget;

namespace lookfar {
class BoxControl;
}

namespace lookfar::desktop {

/// Gives a native widget the rectangle and the visibility of its control. One that lies outside of
/// its window is hidden, lest the keyboard stop at what nobody can see.
void place(QWidget& widget, const BoxControl& control);

/// Sets one of the colours in which a native widget is painted.
void set_palette_colour(QWidget& widget, QPalette::ColorRole role, const QColor& colour);

/// Sets what assistive technology calls a widget, and tells it only of a change.
void set_accessible_name(QWidget& widget, const QString& name);

} // namespace lookfar::desktop
