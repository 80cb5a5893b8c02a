#pragma once

#include <QObject>
#include <QTimer>

namespace lookfar::desktop {

/// Hides the pointer once it has rested for three seconds on a window that lies over the whole
/// screen and has the keyboard. Whatever the mouse does then brings it back, and so does another
/// window that comes up. It stays while a list or a menu is open. Installed as an event filter of
/// the application.
///
/// What the pointer points at, and what shape the windows give it, is the same while it is hidden.
class PointerRest : public QObject {
  public:
    PointerRest();
    PointerRest(const PointerRest&) = delete;
    PointerRest& operator=(const PointerRest&) = delete;
    ~PointerRest() override { bring_back(); }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void wait_for_rest();
    void hide();
    void bring_back();

    QTimer rest_;
    bool is_hidden_ = false;
};

} // namespace lookfar::desktop
