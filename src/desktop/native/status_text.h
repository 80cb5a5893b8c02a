#pragma once

#include "desktop/native/native_control.h"
#include "runtime/controls/bars.h"

#include <QLabel>

namespace lookfar::desktop {

/// A text in a sunken bar, cut at its width with an ellipsis; the tooltip and assistive technology
/// have the whole text, and screen readers tell a new one.
class StatusText : public QLabel {
  public:
    StatusText(const StatusBar& control, QWidget& window);

    void synchronise();

  private:
    void show_text(const QString& text);

    const StatusBar& control_;
};

NativeControl make_status_text(StatusBar& control, QWidget& window);

} // namespace lookfar::desktop
