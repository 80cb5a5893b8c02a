#pragma once

#include "desktop/style/laid_out_text.h"

#include <QPoint>
#include <QRect>
#include <QRectF>

class QPainter;

namespace lookfar {
class Label;
}

namespace lookfar::desktop {

/// The rectangle of a label that its caption stands in, in logical pixels.
QRect caption_box(const Label& label);

/// The caption of a label, of letters and not of symbols, as it is laid out in the label.
class LabelCaption {
  public:
    explicit LabelCaption(const Label& label);

    /// All that is drawn, in logical pixels of the window. A caption that wraps is cut at the
    /// label's upper and lower edge.
    QRectF extent() const;
    /// Draws the caption with the painter's pen, moved by an offset.
    void draw(QPainter& painter, const QPoint& offset) const;

  private:
    QRect box_;
    bool wraps_;
    LaidOutText text_;
};

} // namespace lookfar::desktop
