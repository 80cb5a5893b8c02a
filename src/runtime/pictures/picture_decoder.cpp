#include "runtime/pictures/picture_decoder.h"

#include "runtime/failure.h"
#include "runtime/pictures/jpeg_markers.h"
#include "runtime/pictures/png_texts.h"

#include <QBuffer>
#include <QByteArray>
#include <QImage>
#include <QImageReader>

#include <array>
#include <utility>

namespace lookfar {

namespace {

constexpr std::array picture_formats{"jpeg", "jpg", "gif", "png", "bmp", "webp"};

[[noreturn]] void refuse(const std::string& reason) {
    throw Failure(FailureKind::invalid_picture, reason);
}

void refuse_format(const QByteArray& format) {
    for (const char* const known : picture_formats)
        if (format == known)
            return;
    refuse("The camera's answer is not a picture.");
}

void refuse_size(QSize size) {
    if (!size.isValid() || size.isEmpty())
        refuse("The picture has no size.");
    if (static_cast<long long>(size.width()) * size.height() > largest_picture)
        refuse("The picture is too large: " + std::to_string(size.width()) + " x " +
               std::to_string(size.height()) + " pixels.");
}

/// Lets the reader allocate the largest picture in its widest format, four channels of two bytes.
void raise_allocation_limit() {
    constexpr long long bytes_per_pixel = 8;
    constexpr long long bytes_per_megabyte = 1024LL * 1024;
    QImageReader::setAllocationLimit(
        static_cast<int>(largest_picture * bytes_per_pixel / bytes_per_megabyte));
}

QImage read_image(std::span<const std::uint8_t> bytes) {
    auto content = QByteArray::fromRawData(reinterpret_cast<const char*>(bytes.data()),
                                           static_cast<qsizetype>(bytes.size()));
    QBuffer buffer(&content);
    buffer.open(QIODevice::ReadOnly);
    raise_allocation_limit();
    QImageReader reader(&buffer);
    reader.setDecideFormatFromContent(true);
    refuse_format(reader.format());
    refuse_size(reader.size());
    refuse_cut_short_jpeg(bytes);
    if (has_too_many_scans(bytes))
        refuse("The picture is stored in too many scans.");
    QImage image = reader.read();
    if (image.isNull())
        refuse("The picture can't be decoded: " + reader.errorString().toStdString());
    refuse_size(image.size());
    return image;
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

/// The image's own bytes. The pointer to them keeps the image alive.
std::shared_ptr<std::uint8_t[]> share_bytes(QImage image) {
    auto owner = std::make_shared<QImage>(std::move(image));
    return {owner, owner->bits()};
}

Pixels pixels_of(QImage image) {
    auto opacity = opacity_of(image);
    image.convertTo(QImage::Format_RGB888);
    if (image.isNull())
        refuse("There is not enough memory for the picture.");
    return {.width = image.width(),
            .height = image.height(),
            .stride = static_cast<int>(image.bytesPerLine()),
            .bytes = share_bytes(std::move(image)),
            .opacity = std::move(opacity)};
}

} // namespace

void refuse_cut_short_jpeg(std::span<const std::uint8_t> bytes) {
    if (is_cut_short_jpeg(bytes))
        refuse("The picture ends too early.");
}

Pixels decode_pixels(std::span<const std::uint8_t> bytes) {
    if (starts_png(bytes))
        return pixels_of(read_image(without_png_texts(bytes)));
    return pixels_of(read_image(bytes));
}

PictureReference PictureDecoder::decode(Bytes bytes) {
    if (auto shared = last_pixels_.lock(); shared && bytes == last_bytes_) {
        Pixels pixels = last_shape_;
        pixels.bytes = std::move(shared);
        return std::make_shared<Picture>(std::move(pixels));
    }
    Pixels pixels = decode_pixels(bytes);
    last_bytes_ = std::move(bytes);
    last_pixels_ = pixels.bytes;
    last_shape_ = pixels;
    last_shape_.bytes.reset();
    return std::make_shared<Picture>(std::move(pixels));
}

} // namespace lookfar
