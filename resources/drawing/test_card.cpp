#include "resources/drawing/test_card.h"

#include "resources/drawing/lettering.h"

#include <QLineF>
#include <QPainter>
#include <QPainterPath>
#include <QRectF>

#include <algorithm>
#include <span>
#include <vector>

namespace lookfar::resources {

namespace {

// The card is ruled into squares of this many pixels, 20 across and 15 down.
constexpr int square = 27;
constexpr int columns = 20;
constexpr int rows = 15;
constexpr QRectF card(0, 0, columns* square, rows* square);
constexpr QPointF centre(card.width() / 2, card.height() / 2);
constexpr qreal circle_radius = 6.5 * square;

// Between these rows lies the field that an error is read on.
constexpr qreal field_top = 5.5;
constexpr qreal field_end = 9.5;

/// The part of the circle's square from one row to another, counted in rows of the grid.
QRectF band(qreal first_row, qreal end_row) {
    return {centre.x() - circle_radius, first_row * square, 2 * circle_radius,
            (end_row - first_row) * square};
}

void draw_grid(QPainter& painter) {
    painter.setPen(QPen(QColor("#e4e6e8"), 2));
    for (int column = 1; column < columns; ++column)
        painter.drawLine(column * square, 0, column * square, rows * square);
    for (int row = 1; row < rows; ++row)
        painter.drawLine(0, row * square, columns * square, row * square);
}

/// A frame of black and white blocks, the same from every corner inwards.
void draw_frame(QPainter& painter) {
    constexpr int thickness = 10;
    const auto colour_of = [](int block, int blocks) {
        const int from_corner = std::min(block, blocks - 1 - block);
        return from_corner % 2 == 0 ? QColor("#101214") : QColor("#f4f5f6");
    };
    for (int column = 0; column < columns; ++column) {
        const QColor colour = colour_of(column, columns);
        painter.fillRect(column * square, 0, square, thickness, colour);
        painter.fillRect(column * square, rows * square - thickness, square, thickness, colour);
    }
    for (int row = 0; row < rows; ++row) {
        const QColor colour = colour_of(row, rows);
        painter.fillRect(0, row * square, thickness, square, colour);
        painter.fillRect(columns * square - thickness, row * square, thickness, square, colour);
    }
}

void draw_corner_mark(QPainter& painter, const QPointF& middle) {
    painter.setPen(QPen(QColor("#f4f5f6"), 3));
    painter.setBrush(QColor("#5c6166"));
    painter.drawEllipse(middle, 1.5 * square, 1.5 * square);
    painter.setPen(QPen(QColor("#f4f5f6"), 1.5));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(middle, 0.75 * square, 0.75 * square);
    painter.drawLine(
        QLineF(middle.x() - 1.5 * square, middle.y(), middle.x() + 1.5 * square, middle.y()));
    painter.drawLine(
        QLineF(middle.x(), middle.y() - 1.5 * square, middle.x(), middle.y() + 1.5 * square));
}

void draw_corner_marks(QPainter& painter) {
    constexpr qreal inset = 2.5 * square;
    for (const qreal x : {inset, card.width() - inset})
        for (const qreal y : {inset, card.height() - inset})
            draw_corner_mark(painter, {x, y});
}

void fill_in_steps(QPainter& painter, const QRectF& area, std::span<const QColor> colours) {
    const qreal width = area.width() / static_cast<qreal>(colours.size());
    qreal left = area.left();
    for (const QColor& colour : colours) {
        painter.fillRect(QRectF(left, area.top(), width, area.height()), colour);
        left += width;
    }
}

void draw_colour_bars(QPainter& painter) {
    const std::vector<QColor> colours = {"#f2f2f2", "#e8d31c", "#1fc4cc", "#22b84a",
                                         "#c93ac0", "#d8302c", "#2a3fd0"};
    fill_in_steps(painter, band(3.25, field_top), colours);
}

/// Steps of grey from black at the rims to white in the middle.
void draw_grey_steps(QPainter& painter) {
    std::vector<QColor> colours;
    for (const int brightness : {12, 60, 108, 156, 204, 252, 204, 156, 108, 60, 12})
        colours.emplace_back(brightness, brightness, brightness);
    fill_in_steps(painter, band(11, 12.25), colours);
}

/// Upright stripes that grow wider from the middle to both rims.
void draw_gratings(QPainter& painter) {
    const QRectF area = band(field_end, 11);
    painter.fillRect(area, QColor("#f4f5f6"));
    qreal distance = -1;
    for (const int width : {2, 3, 4, 6, 9}) {
        for (int stripe = 0; stripe < 18 / width; ++stripe) {
            const QRectF right(centre.x() + distance, area.top(), width, area.height());
            const QRectF left = right.translated(-2 * distance - width, 0);
            painter.fillRect(right, QColor("#101214"));
            painter.fillRect(left, QColor("#101214"));
            distance += 2 * width;
        }
    }
}

void draw_name(QPainter& painter) {
    const QRectF area = band(2, 3.25);
    painter.fillRect(area, QColor("#101214"));
    painter.setPen(QColor("#f4f5f6"));
    draw_spread_text(painter, "LOOKFAR", area.adjusted(84, 0, -84, 0), 28);
}

void draw_caps(QPainter& painter) {
    painter.fillRect(band(1, 2), QColor("#f4f5f6"));
    const std::vector<QColor> colours = {"#e8b31c", "#d8502c", "#e8b31c"};
    fill_in_steps(painter, band(12.25, 14), colours);
}

void draw_circle(QPainter& painter) {
    QPainterPath circle;
    circle.addEllipse(centre, circle_radius, circle_radius);
    painter.save();
    painter.setClipPath(circle);
    draw_caps(painter);
    draw_name(painter);
    draw_colour_bars(painter);
    draw_gratings(painter);
    draw_grey_steps(painter);
    painter.restore();
    painter.setPen(QPen(QColor("#f4f5f6"), 3));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(circle);
}

/// The error's two lines stand on it, whatever the shape of the screen that the card is stretched
/// over. It reaches from edge to edge, since a long line does.
void draw_field(QPainter& painter) {
    const QRectF field(0, field_top * square, card.width(), (field_end - field_top) * square);
    painter.fillRect(field, QColor("#f4f5f6"));
    painter.setPen(QPen(QColor("#101214"), 3));
    painter.drawLine(field.topLeft(), field.topRight());
    painter.drawLine(field.bottomLeft(), field.bottomRight());
}

} // namespace

QImage draw_test_card() {
    QImage image(card.size().toSize(), QImage::Format_RGB32);
    image.fill(QColor("#7d8288"));
    QPainter painter(&image);
    draw_grid(painter);
    draw_frame(painter);
    painter.setRenderHint(QPainter::Antialiasing);
    draw_corner_marks(painter);
    draw_circle(painter);
    draw_field(painter);
    return image;
}

} // namespace lookfar::resources
