#pragma once

#include "desktop/native/native_control.h"
#include "runtime/controls/bars.h"

#include <QWidget>

namespace lookfar::desktop {

/// Two small buttons, one above the other, that repeat while they are held. No tab stop.
class UpDownArrows : public QWidget {
    Q_OBJECT

  public:
    UpDownArrows(const UpDown& control, QWidget& window);

    void synchronise(const UpDown& control);

    long minimum() const { return minimum_; }
    long maximum() const { return maximum_; }
    long value() const { return value_; }

  Q_SIGNALS:
    /// An arrow is pressed: +1 for up, -1 for down.
    void stepped(int direction);
    /// Assistive technology asks for a value, which may lie beyond the limits.
    void value_wanted(long value);

  private:
    void add_arrow(Qt::ArrowType type, const QString& name, int direction);

    const long minimum_;
    const long maximum_;
    long value_;
};

NativeControl make_up_down_arrows(UpDown& control, UserActions& actions, QWidget& window);

} // namespace lookfar::desktop
