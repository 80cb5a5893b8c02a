#include "resources/drawing/lettering.h"

#include <QPainterPath>
#include <QPointF>

#include <vector>

namespace lookfar::resources {

namespace {

std::vector<QPainterPath> letter_outlines(const QString& text, int pixel_size) {
    std::vector<QPainterPath> outlines;
    for (const QChar letter : text) {
        QPainterPath outline;
        outline.addText(QPointF(), lettering(pixel_size, QFont::Bold), QString(letter));
        outlines.push_back(outline);
    }
    return outlines;
}

qreal gap_between(const std::vector<QPainterPath>& outlines, qreal width) {
    qreal left_over = width;
    for (const QPainterPath& outline : outlines)
        left_over -= outline.boundingRect().width();
    return left_over / static_cast<qreal>(outlines.size() - 1);
}

} // namespace

QFont lettering(int pixel_size, QFont::Weight weight) {
    QFont font("Liberation Sans");
    font.setPixelSize(pixel_size);
    font.setWeight(weight);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

void draw_spread_text(QPainter& painter, const QString& text, const QRectF& area, int pixel_size) {
    const std::vector<QPainterPath> outlines = letter_outlines(text, pixel_size);
    const qreal gap = gap_between(outlines, area.width());
    const qreal baseline = area.center().y() + outlines.front().boundingRect().height() / 2;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    qreal left = area.left();
    for (const QPainterPath& outline : outlines) {
        const QRectF bounds = outline.boundingRect();
        const QPainterPath placed = outline.translated(left - bounds.left(), baseline);
        painter.fillPath(placed, painter.pen().color());
        left += bounds.width() + gap;
    }
    painter.restore();
}

} // namespace lookfar::resources
