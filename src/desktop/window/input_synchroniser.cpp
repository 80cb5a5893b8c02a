#include "desktop/window/input_synchroniser.h"

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

} // namespace

bool InputSynchroniser::eventFilter(QObject* watched, QEvent* event) {
    if (is_input(event->type()))
        windows_.synchronise();
    return QObject::eventFilter(watched, event);
}

} // namespace lookfar::desktop
