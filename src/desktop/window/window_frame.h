#pragma once

#include "runtime/look.h"

#include <QPoint>
#include <QRect>
#include <QSize>
#include <QtCore/qnamespace.h>

#include <optional>

class QScreen;
class QWidget;

namespace lookfar {
class Form;
}

namespace lookfar::desktop {

/// The title bar and the buttons with which a window is made.
Qt::WindowFlags window_flags(const Form& form);

/// Whether the window has neither title bar nor buttons, and is outlined instead.
bool is_bare_dialog(const Form& form);

/// Where a window stands on the screen: its size, its position, and whether it is minimised,
/// maximised or over the whole screen.
class WindowFrame {
  public:
    WindowFrame(Form& form, QWidget& window) : form_(form), window_(window) {}

    /// Gives the window what the form says. One that comes up does so on the given screen.
    void apply(QScreen& screen);

    /// Tells the form where the window stands; to be called when the user or the window manager has
    /// moved it. A window that was centred before it had its frame is centred anew.
    void report_move();
    /// The state that the user has given the window; nothing while it is in the form's state.
    std::optional<WindowState> state_by_user() const;

  private:
    void apply_screen(QScreen& screen);
    void keep_on_screen(const QSize& screen);
    void apply_size();
    void apply_position();
    void apply_state();
    void centre_on_screen(const QSize& size);
    /// In logical pixels, from the corner.
    QPoint position() const;
    /// In logical pixels.
    QSize client_size() const;
    /// Whether the window is a bare one that is to lie over the whole screen, task bars included.
    bool covers_screen() const;
    Qt::WindowStates wanted_states() const;

    Form& form_;
    QWidget& window_;
    /// The screen from whose corner the form's position counts, in logical pixels.
    QRect screen_;
    /// The position that the form was last known to have, in logical pixels.
    std::optional<QPoint> position_;
    /// The size by which the window was centred last, in logical pixels and with its frame.
    QSize centred_size_;
};

} // namespace lookfar::desktop
