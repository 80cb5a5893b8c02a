#pragma once

#include "desktop/native/native_control.h"
#include "runtime/controls/label.h"

#include <QAbstractButton>

#include <optional>

namespace lookfar::desktop {

/// Lets the keyboard reach a label that is a button or a link: a transparent widget over the label,
/// at which the tab key stops, and which Space and Enter click. The label itself is drawn by the
/// window, and takes the mouse.
class LabelTabStop : public QAbstractButton {
  public:
    LabelTabStop(LabelRole role, QWidget& window);

    LabelRole role() const { return role_; }
    /// Whether what the label opens and closes is open; nothing for a label that does not.
    std::optional<bool> is_open() const { return is_open_; }

    void synchronise(const Label& label);

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* /*event*/) override {}

  private:
    const LabelRole role_;
    std::optional<bool> is_open_;
};

NativeControl make_label_tab_stop(Label& label, UserActions& actions, QWidget& window);

} // namespace lookfar::desktop
