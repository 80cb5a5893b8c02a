#include "demo/picture_answer.h"

#include "demo/gif_writer.h"

#include <QBuffer>
#include <stdexcept>

namespace lookfar::demo {

namespace {

/// The quality is the encoder's own where none is given.
std::string encoded(const QImage& picture, const char* format, int quality = -1) {
    QBuffer buffer;
    if (!picture.save(&buffer, format, quality))
        throw std::runtime_error("cannot encode a picture");
    return buffer.data().toStdString();
}

} // namespace

Answer picture_answer(const QImage& picture, PictureFormat format) {
    switch (format) {
    case PictureFormat::jpeg:
        return {.content_type = "image/jpeg", .body = encoded(picture, "JPEG", 85)};
    case PictureFormat::gif:
        return {.content_type = "image/gif", .body = to_gif(picture)};
    case PictureFormat::png:
        return {.content_type = "image/png", .body = encoded(picture, "PNG")};
    }
    return {};
}

} // namespace lookfar::demo
