#pragma once

#include "demo/moment.h"

#include <QImage>
#include <QSize>

namespace lookfar::demo {

/// A scene draws what a camera sees at a moment, in any size. The same moment gives the same
/// picture; the next frame shows boats, cars and clouds further on. Scenes may be drawn on any
/// thread and need no application object.
using Scene = QImage (*)(QSize size, const Moment& moment);

QImage draw_harbour(QSize size, const Moment& moment);
QImage draw_tower(QSize size, const Moment& moment);
QImage draw_mountain(QSize size, const Moment& moment);
QImage draw_street(QSize size, const Moment& moment);
QImage draw_lighthouse(QSize size, const Moment& moment);
QImage draw_airport(QSize size, const Moment& moment);
QImage draw_bridge(QSize size, const Moment& moment);

/// Writes date and time into the lower left corner, and the camera's title before them. Fonts
/// need a QGuiApplication; on a machine without a display choose its "offscreen" platform.
void stamp(QImage& picture, const QString& title, const Moment& moment);

} // namespace lookfar::demo
