#include "runtime/pictures/picture_decoder.h"

#include "runtime/failure.h"
#include "runtime/pictures/jpeg_decoder.h"
#include "runtime/pictures/jpeg_markers.h"
#include "runtime/pictures/png_texts.h"

#include <QBuffer>
#include <QByteArray>
#include <QImage>
#include <QImageReader>
#include <QTransform>

#include <algorithm>
#include <array>
#include <mutex>
#include <new>
#include <utility>

namespace lookfar {

namespace {

/// Named as in their media types.
constexpr std::array picture_formats{"jpeg", "gif", "png", "bmp", "webp"};

[[noreturn]] void refuse(const std::string& reason) {
    throw Failure(FailureKind::invalid_picture, reason);
}

bool is_readable(const QByteArray& format) {
    return std::ranges::any_of(picture_formats,
                               [&format](const char* known) { return format == known; });
}

QByteArray without_copy(std::span<const std::uint8_t> bytes) {
    return QByteArray::fromRawData(reinterpret_cast<const char*>(bytes.data()),
                                   static_cast<qsizetype>(bytes.size()));
}

void refuse_size(QSize size) {
    if (!size.isValid() || size.isEmpty())
        refuse("The picture has no size.");
    if (static_cast<long long>(size.width()) * size.height() > largest_picture)
        refuse("The picture is too large: " + std::to_string(size.width()) + " x " +
               std::to_string(size.height()) + " pixels.");
}

/// Lets all readers allocate the largest picture in its widest format, four channels of two bytes.
/// The limit is one of the process, and pictures are decoded on several threads.
void raise_allocation_limit() {
    static std::once_flag once;
    constexpr long long widest_pixel = 8;
    constexpr long long bytes_per_megabyte = 1024LL * 1024;
    constexpr auto limit = static_cast<int>(largest_picture * widest_pixel / bytes_per_megabyte);
    std::call_once(once, [] { QImageReader::setAllocationLimit(limit); });
}

/// Qt's reader over the bytes of a picture that may be decoded.
class Reader {
  public:
    explicit Reader(std::span<const std::uint8_t> bytes)
        : content_(without_copy(bytes)), buffer_(&content_), reader_(&buffer_) {
        raise_allocation_limit();
        reader_.setDecideFormatFromContent(true);
        if (!is_readable(reader_.format()))
            refuse("The camera's answer is not a picture.");
        refuse_size(reader_.size());
    }

    bool is_jpeg() const { return reader_.format() == "jpeg"; }
    QImageIOHandler::Transformations orientation() const { return reader_.transformation(); }

    QImage read() {
        QImage image = reader_.read();
        if (image.isNull())
            refuse("The picture can't be decoded: " + reader_.errorString().toStdString());
        refuse_size(image.size());
        return image;
    }

  private:
    QByteArray content_;
    QBuffer buffer_;
    QImageReader reader_;
};

QImage oriented(const QImage& image, QImageIOHandler::Transformations orientation) {
    const QImage mirrored =
        image.mirrored(orientation.testFlag(QImageIOHandler::TransformationMirror),
                       orientation.testFlag(QImageIOHandler::TransformationFlip));
    if (!orientation.testFlag(QImageIOHandler::TransformationRotate90))
        return mirrored;
    constexpr double quarter_turn = 90;
    return mirrored.transformed(QTransform().rotate(quarter_turn));
}

std::shared_ptr<std::uint8_t[]> opacity_of(const QImage& image) {
    if (!image.hasAlphaChannel())
        return nullptr;
    const QImage alpha = image.convertToFormat(QImage::Format_Alpha8);
    const auto width = static_cast<std::size_t>(alpha.width());
    auto opacity = std::make_shared_for_overwrite<std::uint8_t[]>(
        width * static_cast<std::size_t>(alpha.height()));
    for (int row = 0; row < alpha.height(); ++row)
        std::copy_n(alpha.constScanLine(row), width,
                    opacity.get() + static_cast<std::size_t>(row) * width);
    return opacity;
}

std::shared_ptr<const std::uint8_t[]> bytes_of(const QImage& image, const PixelMemory& memory) {
    const auto stride = static_cast<std::size_t>(stride_of(image.width()));
    const std::size_t byte_count = stride * static_cast<std::size_t>(image.height());
    auto bytes = memory.take(byte_count);
    for (int row = 0; row < image.height(); ++row)
        std::copy_n(image.constScanLine(row), image.width() * bytes_per_pixel,
                    bytes.get() + static_cast<std::size_t>(row) * stride);
    clear_padding({bytes.get(), byte_count}, image.width());
    return bytes;
}

Pixels pixels_of(QImage image, const PixelMemory& memory) {
    auto opacity = opacity_of(image);
    image.convertTo(QImage::Format_RGB888);
    if (image.isNull())
        throw std::bad_alloc();
    return {.width = image.width(),
            .height = image.height(),
            .stride = stride_of(image.width()),
            .bytes = bytes_of(image, memory),
            .opacity = std::move(opacity)};
}

Pixels laid(const Pixels& pixels, QImageIOHandler::Transformations orientation,
            const PixelMemory& memory) {
    if (orientation == QImageIOHandler::TransformationNone)
        return pixels;
    const QImage image(pixels.bytes.get(), pixels.width, pixels.height, pixels.stride,
                       QImage::Format_RGB888);
    return pixels_of(oriented(image, orientation), memory);
}

Pixels decode_by_reader(Reader& reader, const PixelMemory& memory) {
    return pixels_of(oriented(reader.read(), reader.orientation()), memory);
}

Pixels decode(std::span<const std::uint8_t> bytes, const PixelMemory& memory) {
    if (starts_png(bytes)) {
        const auto picture = without_png_texts(bytes);
        Reader reader(picture);
        return decode_by_reader(reader, memory);
    }
    Reader reader(bytes);
    if (!reader.is_jpeg())
        return decode_by_reader(reader, memory);
    if (const auto pixels = decode_jpeg(bytes, memory))
        return laid(*pixels, reader.orientation(), memory);
    refuse_cut_short_jpeg(bytes);
    if (has_too_many_scans(bytes))
        refuse("The picture is stored in too many scans.");
    return decode_by_reader(reader, memory);
}

} // namespace

Pixels decode_pixels(std::span<const std::uint8_t> bytes, const PixelMemory& memory) {
    try {
        return decode(bytes, memory);
    } catch (const std::bad_alloc&) {
        throw no_memory_for_a_picture();
    }
}

bool is_in_readable_format(std::span<const std::uint8_t> bytes) {
    QByteArray content = without_copy(bytes);
    QBuffer buffer(&content);
    buffer.open(QIODevice::ReadOnly);
    return is_readable(QImageReader::imageFormat(&buffer));
}

std::string readable_media_types() {
    const QList<QByteArray> readable = QImageReader::supportedImageFormats();
    std::string types;
    for (const char* const format : picture_formats)
        if (readable.contains(format))
            types += std::string(types.empty() ? "" : ",") + "image/" + format;
    return types;
}

} // namespace lookfar
