#pragma once

#include "desktop/style/laid_out_text.h"

#include <QLabel>
#include <QRect>
#include <QRegion>

namespace lookfar::desktop {

/// A text that looks like a tooltip and stands at a widget, until the user presses a key or a mouse
/// button anywhere in the program. It goes then, and wherever else it is hidden. Unlike a tooltip
/// it stays when the pointer moves.
class Hint : public QLabel {
  public:
    /// Comes up at once, inside the window and no wider than the widget: below it, or over its foot
    /// where there is no room below. Where one of the captions of the window begins the line below,
    /// the hint stands at that line's end. Of a long text the middle is left out.
    Hint(const QString& text, const QWidget& widget, QWidget& window, const QRegion& captions);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    bool eventFilter(QObject* object, QEvent* event) override;

  private:
    const QRect room_;
    LaidOutText lines_;
};

} // namespace lookfar::desktop
