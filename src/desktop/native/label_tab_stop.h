#pragma once

#include "desktop/native/native_control.h"
#include "runtime/controls/label.h"

#include <QWidget>

namespace lookfar::desktop {

/// Lets the keyboard reach a label that is a button or a link: a clear widget over it, a stop of
/// the tab key, which Space and Enter click. The label is drawn by the window and has the mouse.
class LabelTabStop : public QWidget {
  public:
    LabelTabStop(Label& label, UserActions& actions, QWidget& window);

    void synchronise();
    /// The label is about to go.
    void release() { label_ = nullptr; }

    bool is_link() const { return is_link_; }
    /// Clicks the label.
    void click();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    Label* label_;
    UserActions& actions_;
    const bool is_link_;
};

NativeControl make_label_tab_stop(Label& label, UserActions& actions, QWidget& window);

} // namespace lookfar::desktop
