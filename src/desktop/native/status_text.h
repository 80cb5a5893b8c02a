#pragma once

#include "desktop/native/native_control.h"
#include "runtime/controls/bars.h"

#include <QLabel>

namespace lookfar::desktop {

/// A text in a sunken bar, cut at its width with an ellipsis; the tooltip is then the whole text.
/// The accessible name always is.
class StatusText : public QLabel {
  public:
    explicit StatusText(QWidget& window);

    void synchronise(const StatusBar& control);

  private:
    void show_text(const QString& text);
};

NativeControl make_status_text(StatusBar& control, QWidget& window);

} // namespace lookfar::desktop
