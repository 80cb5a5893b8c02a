#pragma once

#include "desktop/native/native_control.h"
#include "runtime/controls/text_box.h"

#include <QLineEdit>

namespace lookfar::desktop {

/// The native widget of a text box.
class TextEntry : public QLineEdit {
  public:
    TextEntry(TextBox& control, UserActions& actions, QWidget& window);

    /// Takes text and selection over from the control.
    void synchronise();
    /// The control is about to go.
    void release() { control_ = nullptr; }

  protected:
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

  private:
    void take_length_limit(int text_length);
    void take_selection();
    void report_text();
    void report_selection();
    void report_focus();

    TextBox* control_;
    UserActions& actions_;
    /// The button is down with which the box got the focus, and a handler has selected text.
    bool click_keeps_selection_ = false;
};

NativeControl make_text_entry(TextBox& control, UserActions& actions, QWidget& window);

} // namespace lookfar::desktop
