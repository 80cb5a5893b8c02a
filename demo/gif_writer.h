#pragma once

#include <QImage>
#include <string>

namespace lookfar::demo {

/// The picture as a GIF89a file with one frame and a palette of at most 256 colours.
///
/// A picture of 256 colours or fewer keeps them exactly; others are dithered. Transparency is
/// dropped. Throws std::invalid_argument for an empty picture or a side above 65535 pixels.
std::string to_gif(const QImage& picture);

} // namespace lookfar::demo
