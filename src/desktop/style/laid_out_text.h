#pragma once

#include <QFont>
#include <QRectF>
#include <QString>
#include <QTextLayout>
#include <QTextOption>

namespace lookfar::desktop {

/// A text in its lines, which line feeds part. With `QTextOption::NoWrap` a line may be longer than
/// the width; with `QTextOption::WrapAtWordBoundaryOrAnywhere` it is wrapped there between words,
/// and within a word that is wider than its line.
class LaidOutText {
  public:
    /// The width, at which the lines are aligned too, is in logical pixels.
    LaidOutText(const QString& text, const QFont& font, Qt::Alignment alignment, double width,
                QTextOption::WrapMode wrapping);

    /// The height of all lines, in logical pixels.
    double height() const { return height_; }
    /// All that the lines cover, in logical pixels from their top left corner, with what hangs out
    /// of them: slanted letters reach beyond the room that they are given in their line.
    QRectF extent() const;
    void draw(QPainter& painter, const QPointF& top_left) const;

  private:
    void lay_out(double width);

    QTextLayout layout_;
    double height_ = 0;
};

} // namespace lookfar::desktop
