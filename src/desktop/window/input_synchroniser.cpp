#include "desktop/window/input_synchroniser.h"

#include "desktop/window/window_view.h"
#include "desktop/window/windows.h"

#include <QEvent>

namespace lookfar::desktop {

namespace {

bool is_input(QEvent::Type type) {
    switch (type) {
    case QEvent::KeyPress:
    case QEvent::InputMethod:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::Shortcut:
    case QEvent::Wheel:
        return true;
    default:
        return false;
    }
}

/// What the window opens, its lists and menus, leaves with it.
bool is_in_leaving_window(const QObject* object) {
    const auto* widget = qobject_cast<const QWidget*>(object);
    for (; widget; widget = widget->parentWidget()) {
        const auto* const view = dynamic_cast<const WindowView*>(widget);
        if (view && view->is_leaving())
            return true;
    }
    return false;
}

} // namespace

bool InputSynchroniser::eventFilter(QObject* watched, QEvent* event) {
    if (is_input(event->type()))
        windows_.synchronise();
    if ((is_input(event->type()) || event->isInputEvent()) && is_in_leaving_window(watched))
        return true;
    return QObject::eventFilter(watched, event);
}

} // namespace lookfar::desktop
