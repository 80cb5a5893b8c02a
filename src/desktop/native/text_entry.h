#pragma once

#include "desktop/native/native_control.h"
#include "runtime/controls/text_box.h"

#include <QLineEdit>
#include <QTimer>

class QValidator;

namespace lookfar::desktop {

/// The native widget of a text box. Its caret stands still once its user has done nothing for ten
/// seconds: a caret that blinks wakes a program at rest twice a second.
class TextEntry : public QLineEdit {
    Q_OBJECT

  public:
    TextEntry(const TextBox& control, QWidget& window);

    /// Takes text and selection over from the control.
    void synchronise(const TextBox& control);

  Q_SIGNALS:
    /// The keyboard has come to the entry.
    void focused();
    /// A key is pressed, but has had no effect yet.
    void key_pressed(KeyCode code, short shift);

  protected:
    bool event(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

  private:
    void apply_text(const QString& text);
    void apply_length_limit(const TextBox& control, int text_length);
    void apply_selection(const TextBox& control);
    void blink_for_a_while();

    /// Takes line breaks out of what the user enters.
    const QValidator* line_breaks_;
    QTimer caret_rest_{this};
    /// Whether the press that brought the keyboard is still held, and a handler has selected text:
    /// the rest of that click then leaves the selection as it is.
    bool click_keeps_selection_ = false;
};

NativeControl make_text_entry(TextBox& control, UserActions& actions, QWidget& window);

} // namespace lookfar::desktop
