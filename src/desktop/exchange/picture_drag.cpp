#include "desktop/exchange/picture_drag.h"

#include "desktop/drawn/reduced_picture.h"
#include "desktop/native/owned_by_qt.h"

#include <QDir>
#include <QDrag>
#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QPixmap>
#include <QUrl>

#include <utility>

namespace lookfar::desktop {

namespace {

/// What hangs at the pointer.
QPixmap thumbnail_of(const QMimeData& data) {
    constexpr int longest_side = 96;
    const auto image = data.imageData().value<QImage>();
    return QPixmap::fromImage(
        image.scaled(longest_side, longest_side, Qt::KeepAspectRatio, Qt::SmoothTransformation));
}

} // namespace

/// Qt offers an image in every format that it writes, and encodes it only for who asks.
std::unique_ptr<QMimeData> picture_data(const Picture& picture) {
    auto data = std::make_unique<QMimeData>();
    data->setImageData(copied(picture));
    return data;
}

/// Not at once: the handler that asks for the drag would last as long, and hold up the others.
void PictureDrag::start(PictureReference picture) {
    QMetaObject::invokeMethod(
        &loop_, [this, picture = std::move(picture)] { drag(*picture); }, Qt::QueuedConnection);
}

void PictureDrag::drag(const Picture& picture) {
    if (!QGuiApplication::mouseButtons().testFlag(Qt::LeftButton))
        return;
    auto data = picture_data(picture);
    const OriginalFile* const original = picture.original();
    const QString path = original ? written(*original) : QString();
    if (!path.isEmpty())
        data->setUrls({QUrl::fromLocalFile(path)});
    QDrag& drag = *owned_by_qt<QDrag>(&loop_);
    drag.setPixmap(thumbnail_of(*data));
    drag.setMimeData(data.release());
    drag.exec(Qt::CopyAction);
}

QString PictureDrag::written(const OriginalFile& original) {
    folder_.emplace(QDir::tempPath() + QStringLiteral("/lookfar-XXXXXX"));
    QFile file(folder_->filePath(QString::fromStdString(original.name)));
    const auto size = static_cast<qint64>(original.bytes->size());
    const auto* const bytes = reinterpret_cast<const char*>(original.bytes->data());
    const bool is_whole = folder_->isValid() && file.open(QIODevice::WriteOnly) &&
                          file.write(bytes, size) == size && file.flush();
    return is_whole ? file.fileName() : QString();
}

} // namespace lookfar::desktop
