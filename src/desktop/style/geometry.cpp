#include "desktop/style/geometry.h"

namespace lookfar::desktop {

double to_pixels(float twips) {
    return static_cast<double>(twips) / static_cast<double>(twips_per_pixel);
}

float to_twips(int pixels) {
    return static_cast<float>(pixels) * twips_per_pixel;
}

int to_whole_pixels(float twips) {
    return qRound(to_pixels(twips));
}

Qt::Alignment horizontal_alignment(Alignment alignment) {
    switch (alignment) {
    case Alignment::left:
        return Qt::AlignLeft;
    case Alignment::right:
        return Qt::AlignRight;
    case Alignment::centre:
        return Qt::AlignHCenter;
    }
    return Qt::AlignLeft;
}

QRectF exact_rectangle(const Bounds& bounds) {
    return {to_pixels(bounds.Left), to_pixels(bounds.Top), to_pixels(bounds.Width),
            to_pixels(bounds.Height)};
}

QRect pixel_rectangle(const Bounds& bounds) {
    const QRectF exact = exact_rectangle(bounds);
    const QPoint top_left(qRound(exact.left()), qRound(exact.top()));
    const QPoint beyond(qRound(exact.left() + exact.width()), qRound(exact.top() + exact.height()));
    return {top_left, QSize(beyond.x() - top_left.x(), beyond.y() - top_left.y())};
}

QRect outline_of(const QRect& box) {
    return box.adjusted(0, 0, -1, -1);
}

} // namespace lookfar::desktop
