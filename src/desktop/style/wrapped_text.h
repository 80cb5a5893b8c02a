#pragma once

#include <QFont>
#include <QRectF>
#include <QString>
#include <QTextLayout>

namespace lookfar::desktop {

/// A text wrapped between words, and within a word that is wider than its line. Line feeds
/// part lines too.
class WrappedText {
  public:
    /// The width is in logical pixels.
    WrappedText(const QString& text, const QFont& font, Qt::Alignment alignment, double width);

    /// The height of all lines, in logical pixels.
    double height() const { return height_; }
    void draw(QPainter& painter, const QPointF& top_left) const;

  private:
    void lay_out(double width);

    QTextLayout layout_;
    double height_ = 0;
};

} // namespace lookfar::desktop
