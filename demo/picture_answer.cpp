#include "demo/picture_answer.h"

#include "demo/gif_writer.h"

#include <QBuffer>
#include <QByteArray>
#include <stdexcept>
#include <string>

namespace lookfar::demo {
namespace {

std::string to_jpeg(const QImage& picture) {
    constexpr int quality = 85;
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (!buffer.open(QIODevice::WriteOnly) || !picture.save(&buffer, "JPEG", quality)) {
        throw std::runtime_error("cannot encode a JPEG picture");
    }
    return bytes.toStdString();
}

} // namespace

Answer picture_answer(const QImage& picture, PictureFormat format) {
    const bool is_gif = format == PictureFormat::gif;
    return {.status = 200,
            .content_type = is_gif ? "image/gif" : "image/jpeg",
            .body = is_gif ? to_gif(picture) : to_jpeg(picture),
            .headers = {{"Cache-Control", "no-cache"}},
            .delay = {}};
}

} // namespace lookfar::demo
