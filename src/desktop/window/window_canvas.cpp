#include "desktop/window/window_canvas.h"

#include "desktop/drawn/drawn_controls.h"
#include "desktop/window/window_frame.h"

#include <QPainter>
#include <QWidget>

namespace lookfar::desktop {

void WindowCanvas::prepare(const QWidget& window) {
    draw(window, window.rect());
}

void WindowCanvas::paint(QWidget& window, const QRegion& region) {
    draw(window, region);
    QPainter(&window).drawImage(QPoint(), image_);
}

void WindowCanvas::draw(const QWidget& window, const QRegion& region) {
    fit(window);
    QPainter painter(&image_);
    drawn_.paint(painter, region, window.palette());
    if (is_bare_dialog(form_)) {
        painter.setPen(window.palette().color(QPalette::Dark));
        painter.drawRect(window.rect().adjusted(0, 0, -1, -1));
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
