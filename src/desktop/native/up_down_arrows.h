#pragma once

#include "desktop/native/native_control.h"
#include "runtime/controls/bars.h"

#include <QWidget>

namespace lookfar::desktop {

/// Two small buttons, one above the other, that repeat while they are held. No tab stop.
class UpDownArrows : public QWidget {
  public:
    UpDownArrows(UpDown& control, UserActions& actions, QWidget& window);

    void synchronise();
    /// The control is about to go.
    void release() { control_ = nullptr; }

    /// Nothing once the control is gone.
    const UpDown* control() const { return control_; }
    /// Takes the value that lies nearest within the control's limits.
    void set_value(long value);

  private:
    void add_arrow(Qt::ArrowType type, const QString& name, int direction);

    UpDown* control_;
    UserActions& actions_;
    long shown_value_;
};

NativeControl make_up_down_arrows(UpDown& control, UserActions& actions, QWidget& window);

} // namespace lookfar::desktop
