#pragma once

#include <QMimeData>

#include <memory>

namespace lookfar {
class Picture;
}

namespace lookfar::desktop {

/// The picture as it is now for another program, which may ask for it as PNG too. The pixels are
/// copied: what is written into the picture later doesn't reach them.
std::unique_ptr<QMimeData> picture_data(const Picture& picture);

} // namespace lookfar::desktop
