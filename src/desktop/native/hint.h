#pragma once

#include <QLabel>

namespace lookfar::desktop {

/// A short text that looks like a tooltip and stands below a widget, until the user changes what
/// the widget holds or turns to another one, or some time has passed. It goes by itself. Unlike a
/// tooltip it stays when the pointer moves.
class Hint : public QLabel {
  public:
    /// Comes up at once, inside the window.
    Hint(const QString& text, QWidget& widget, QWidget& window);

  protected:
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* object, QEvent* event) override;
};

} // namespace lookfar::desktop
