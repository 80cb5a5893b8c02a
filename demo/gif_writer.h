#pragma once

#include <QImage>
#include <string>

namespace lookfar::demo {

/// The picture as a GIF file with one frame and a palette of 256 colours. Its sides are at most
/// 65535 pixels long.
///
/// A picture of 256 colours or fewer keeps them exactly; others are dithered. Transparency is
/// dropped. Throws std::runtime_error when the picture cannot be encoded.
std::string to_gif(const QImage& picture);

} // namespace lookfar::demo
