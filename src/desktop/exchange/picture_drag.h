#pragma once

#include "runtime/pictures/picture.h"

#include <QMimeData>
#include <QObject>
#include <QTemporaryDir>

#include <memory>
#include <optional>

namespace lookfar::desktop {

/// The picture as it is now for another program, which may ask for it as PNG too. The pixels are
/// copied: what is written into the picture later doesn't reach them.
std::unique_ptr<QMimeData> picture_data(const Picture& picture);

/// Drags pictures out of the program: as a file in the camera's own bytes, for a file manager, and
/// as an image for whoever takes that.
///
/// The file stands in a temporary folder that only its user can enter. The receiver may copy it
/// long after the drop, so it stays until the next drag or the end.
class PictureDrag {
  public:
    /// Begins from the message loop, if the left mouse button is held then still. The loop goes on
    /// while the user drags.
    void start(PictureReference picture);

    /// Removes the file.
    void end() { folder_.reset(); }

  private:
    void drag(const Picture& picture);
    /// The path of a file with those bytes; empty where it can't be written.
    QString written(const OriginalFile& original);

    std::optional<QTemporaryDir> folder_;
    /// The last member, so that nothing begins any more once it is gone.
    QObject loop_;
};

} // namespace lookfar::desktop
