#include "desktop/window/window_canvas.h"

#include "desktop/drawn/drawn_controls.h"
#include "desktop/window/window_frame.h"

#include <QPainter>
#include <QWidget>

namespace lookfar::desktop {

namespace {

void draw_outline(QPainter& painter, const QWidget& window) {
    painter.setPen(window.palette().color(QPalette::Dark));
    painter.drawRect(window.rect().adjusted(0, 0, -1, -1));
}

} // namespace

void WindowCanvas::prepare(const QWidget& window) {
    draw(window, window.rect());
}

/// Rectangle by rectangle: to paint pictures within a region of another shape, Qt goes span by span
/// and wakes its threads, which takes longer than the painting.
void WindowCanvas::paint(QWidget& window, const QRegion& region) {
    draw(window, region);
    QPainter painter(&window);
    for (const QRect& area : region) {
        painter.setClipRect(area);
        painter.drawImage(QPoint(), image_);
    }
}

void WindowCanvas::draw(const QWidget& window, const QRegion& region) {
    fit(window);
    QPainter painter(&image_);
    for (const QRect& area : region) {
        painter.setClipRect(area);
        drawn_.paint(painter, area, window.palette());
        if (is_bare_dialog(form_))
            draw_outline(painter, window);
    }
}

void WindowCanvas::fit(const QWidget& window) {
    const double pixel_ratio = window.devicePixelRatioF();
    const QSize device_size = (QSizeF(window.size()) * pixel_ratio).toSize();
    if (image_.size() != device_size)
        image_ = QImage(device_size, QImage::Format_RGB32);
    image_.setDevicePixelRatio(pixel_ratio);
}

void WindowCanvas::drop() {
    drawn_.pictures().drop_all();
    image_ = QImage();
}

} // namespace lookfar::desktop
