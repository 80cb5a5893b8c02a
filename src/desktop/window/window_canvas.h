#pragma once

#include <QImage>

class QRegion;
class QWidget;

namespace lookfar {
class Form;
}

namespace lookfar::desktop {

class DrawnControls;

/// The image in which a window is drawn before it is put on the screen. It has no alpha channel,
/// so that shapes can merge with what lies behind them.
class WindowCanvas {
  public:
    WindowCanvas(const Form& form, DrawnControls& drawn) : form_(form), drawn_(drawn) {}

    /// Draws the whole window ahead of its first paint event, so that the pictures are scaled by
    /// then.
    void prepare(const QWidget& window);
    /// Draws the region and puts it onto the window; to be called from the window's paint event.
    void paint(QWidget& window, const QRegion& region);
    /// Gives up the memory of the image and of the scaled pictures; to be called when the window is
    /// hidden.
    void drop();

  private:
    void draw(const QWidget& window, const QRegion& region);
    void fit(const QWidget& window);

    const Form& form_;
    DrawnControls& drawn_;
    QImage image_;
};

} // namespace lookfar::desktop
