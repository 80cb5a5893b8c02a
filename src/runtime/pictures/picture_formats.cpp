#include "runtime/pictures/picture_formats.h"

#include <QBuffer>
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

bool is_in_readable_format(std::span<const std::uint8_t> bytes) {
    QByteArray content = QByteArray::fromRawData(reinterpret_cast<const char*>(bytes.data()),
                                                 static_cast<qsizetype>(bytes.size()));
    QBuffer buffer(&content);
    buffer.open(QIODevice::ReadOnly);
    return is_picture_format(QImageReader::imageFormat(&buffer).toStdString());
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
