#pragma once

#include "demo/stage.h"

#include <QString>

namespace lookfar::demo {

/// A scene paints what a camera sees. The next frame shows boats, people and clouds further on.
/// Scenes may be painted on any thread and need no application object.
using Scene = void (*)(Stage& stage);

void paint_harbour(Stage& stage);
void paint_lighthouse(Stage& stage);
void paint_mountain(Stage& stage);

/// The scene in any size. The same moment gives the same picture.
QImage picture_of(Scene scene, QSize size, const Moment& moment);

/// Writes date and time into the lower left corner, and the camera's title before them. Fonts
/// need a QGuiApplication; on a machine without a display choose its "offscreen" platform.
void stamp(QImage& picture, const QString& title, const Moment& moment);

} // namespace lookfar::demo
