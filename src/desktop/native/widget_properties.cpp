#include "desktop/native/widget_properties.h"

#include "desktop/style/geometry.h"
#include "runtime/controls/control.h"
#include "runtime/form.h"

#include <QWidget>

namespace lookfar::desktop {

namespace {

bool is_in_view(const BoxControl& control) {
    const Bounds window{.Width = control.form.Width, .Height = control.form.Height};
    return exact_rectangle(window).intersects(exact_rectangle(control.bounds()));
}

} // namespace

void place(QWidget& widget, const BoxControl& control) {
    widget.setGeometry(pixel_rectangle(control.bounds()));
    widget.setVisible(control.Visible && is_in_view(control));
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
