#include "desktop/native/widget_properties.h"

#include "desktop/style/geometry.h"
#include "runtime/controls/control.h"

#include <QWidget>

namespace lookfar::desktop {

void place(QWidget& widget, const BoxControl& control) {
    widget.setGeometry(pixel_rectangle(control.bounds()));
    widget.setVisible(control.Visible);
}

void set_palette_colour(QWidget& widget, QPalette::ColorRole role, const QColor& colour) {
    QPalette palette = widget.palette();
    if (palette.color(role) == colour)
        return;
    palette.setColor(role, colour);
    widget.setPalette(palette);
}

void set_accessible_name(QWidget& widget, const QString& name) {
    if (widget.accessibleName() != name)
        widget.setAccessibleName(name);
}

} // namespace lookfar::desktop
