#include "desktop/drawn/label_caption.h"

#include "desktop/style/fonts.h"
#include "desktop/style/geometry.h"
#include "desktop/style/texts.h"
#include "runtime/controls/label.h"

#include <QFontMetrics>
#include <QPainter>

namespace lookfar::desktop {

namespace {

QString seen_caption(const Label& label) {
    QString caption = shown_text(label.seen_caption());
    if (!label.is_shortened())
        return caption;
    const QFontMetrics metrics(screen_font(label.Design.Font));
    return metrics.elidedText(caption, Qt::ElideRight, caption_box(label).width());
}

} // namespace

QRect caption_box(const Label& label) {
    const QRect box = pixel_rectangle(label.bounds());
    return label.Design.Border == LabelBorder::fixed_single ? box.adjusted(1, 1, -1, -1) : box;
}

LabelCaption::LabelCaption(const Label& label)
    : box_(caption_box(label)),
      wraps_(label.wraps()),
      text_(seen_caption(label), screen_font(label.Design.Font),
            horizontal_alignment(label.Design.Align), box_.width(),
            wraps_ ? QTextOption::WrapAtWordBoundaryOrAnywhere : QTextOption::NoWrap) {}

QRectF LabelCaption::extent() const {
    QRectF extent = text_.extent().translated(box_.topLeft());
    if (wraps_) {
        extent.setTop(box_.top());
        extent.setHeight(box_.height());
    }
    return extent;
}

void LabelCaption::draw(QPainter& painter, const QPoint& offset) const {
    if (!wraps_) {
        text_.draw(painter, box_.topLeft() + offset);
        return;
    }
    painter.save();
    painter.setClipRect(extent().toAlignedRect().translated(offset), Qt::IntersectClip);
    text_.draw(painter, box_.topLeft() + offset);
    painter.restore();
}

} // namespace lookfar::desktop
