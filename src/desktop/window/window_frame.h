#pragma once

#include <QPoint>
#include <QSize>
#include <QtCore/qnamespace.h>

namespace lookfar {
class Form;
}

namespace lookfar::desktop {

/// The frame and the buttons of a window.
Qt::WindowFlags window_flags(const Form& form);

/// Whether the window has neither title bar nor buttons, and is outlined instead.
bool is_bare_dialog(const Form& form);

/// The window's client size in logical pixels.
QSize client_size(const Form& form);

/// The window's top left corner in logical pixels.
QPoint window_position(const Form& form);

/// Whether the window is a bare one that is to lie over the whole screen, task bars included.
bool covers_screen(const Form& form, const QSize& screen);

/// The state that the window is to be in.
Qt::WindowStates window_states(const Form& form, const QSize& screen);

} // namespace lookfar::desktop
