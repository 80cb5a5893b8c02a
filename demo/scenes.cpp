#include "demo/scenes.h"

#include <QFont>
#include <algorithm>

namespace lookfar::demo {

QImage picture_of(Scene scene, QSize size, const Moment& moment) {
    Stage stage(size, moment);
    scene(stage);
    return stage.take_picture();
}

void stamp(QImage& picture, const QString& title, const Moment& moment) {
    const QString text = title + "  " + moment.time.toString("yyyy-MM-dd HH:mm:ss");
    QFont font("DejaVu Sans Mono");
    font.setStyleHint(QFont::Monospace);
    font.setBold(true);
    font.setPixelSize(std::clamp(picture.width() / 44, 9, 26));

    QPainter painter(&picture);
    painter.setFont(font);
    const int margin = font.pixelSize() / 2;
    QRect box =
        painter.fontMetrics().boundingRect(text).adjusted(-margin, -margin / 2, margin, margin / 2);
    box.moveBottomLeft(QPoint(0, picture.height() - 1));
    painter.fillRect(box, QColor(0, 0, 0, 130));
    painter.setPen(QColor(0xFFF7D0));
    painter.drawText(box, Qt::AlignCenter, text);
}

} // namespace lookfar::demo
