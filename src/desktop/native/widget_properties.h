#pragma once

#include <QColor>
#include <QPalette>
#include <QString>

class QWidget;

namespace lookfar {
class BoxControl;
}

namespace lookfar::desktop {

/// Gives a native widget the rectangle and the visibility of its control.
void place(QWidget& widget, const BoxControl& control);

/// Gives one of the widget's colours another value.
void set_palette_colour(QWidget& widget, QPalette::ColorRole role, const QColor& colour);

/// Tells assistive technology what a widget is called, if it was called differently.
void set_accessible_name(QWidget& widget, const QString& name);

} // namespace lookfar::desktop
