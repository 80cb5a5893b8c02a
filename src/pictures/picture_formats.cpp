#include "pictures/picture_formats.h"

#include <QByteArray>
#include <QImageReader>

#include <algorithm>
#include <array>

namespace lookfar {

namespace {

constexpr std::array<std::string_view, 5> picture_formats{"jpeg", "gif", "png", "bmp", "webp"};

} // namespace

bool is_picture_format(std::string_view name) {
    return std::ranges::find(picture_formats, name) != picture_formats.end();
}

std::string readable_media_types() {
    const QList<QByteArray> readable = QImageReader::supportedImageFormats();
    std::string types;
    for (const std::string_view format : picture_formats)
        if (readable.contains(QByteArrayView(format)))
            types.append(types.empty() ? "" : ",").append("image/").append(format);
    return types;
}

} // namespace lookfar
