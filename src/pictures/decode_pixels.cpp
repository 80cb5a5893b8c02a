#include "pictures/decode_pixels.h"

#include "pictures/jpeg_decoder.h"
#include "pictures/png_texts.h"
#include "pictures/readable_pictures.h"
#include "runtime/failure.h"

#include <QBuffer>
#include <QByteArray>
#include <QImage>
#include <QImageReader>
#include <QTransform>

#include <algorithm>
#include <mutex>
#include <new>
#include <utility>

namespace lookfar {

namespace {

[[noreturn]] void refuse(const std::string& reason) {
    throw Failure(FailureKind::invalid_picture, reason);
}

void refuse_size(QSize size) {
    if (!size.isValid() || size.isEmpty())
        refuse("The picture has no size.");
    refuse_large(size.width(), size.height());
}

/// Lets all readers allocate what our own limits allow. Theirs is one of the process, and pictures
/// are decoded on several threads.
void raise_allocation_limit() {
    static std::once_flag once;
    constexpr long long bytes_per_megabyte = 1024LL * 1024;
    constexpr auto limit = static_cast<int>(most_bytes_while_decoding / bytes_per_megabyte);
    std::call_once(once, [] { QImageReader::setAllocationLimit(limit); });
}

/// The bytes of a file. Notices when more is asked for than there is.
class FileContent : public QBuffer {
  public:
    explicit FileContent(std::span<const std::uint8_t> bytes) {
        setData(QByteArray::fromRawData(reinterpret_cast<const char*>(bytes.data()),
                                        static_cast<qsizetype>(bytes.size())));
        open(QIODevice::ReadOnly);
    }

    bool was_too_short() const { return was_too_short_; }

  protected:
    qint64 readData(char* data, qint64 most) override {
        const qint64 count = QBuffer::readData(data, most);
        was_too_short_ = was_too_short_ || count < most;
        return count;
    }

  private:
    bool was_too_short_ = false;
};

/// Qt's reader over the bytes of a picture that may be decoded.
class Reader {
  public:
    explicit Reader(std::span<const std::uint8_t> bytes) : content_(bytes), reader_(&content_) {
        raise_allocation_limit();
        choose_format(bytes);
        format_ = reader_.format().toStdString();
        if (!is_picture_format(format_))
            throw Failure(FailureKind::unknown_picture_format,
                          "The camera's answer is not a picture.");
        refuse_size(reader_.size());
    }

    bool is_jpeg() const { return format_ == "jpeg"; }
    QSize size() const { return reader_.size(); }
    QImageIOHandler::Transformations orientation() const { return reader_.transformation(); }

    QImage read() {
        refuse_hungry(size().width(), size().height(), bytes_for_each_pixel());
        QImage image = reader_.read();
        if (image.isNull())
            refuse("The picture can't be decoded: " + reader_.errorString().toStdString());
        refuse_size(image.size());
        if (reads_what_it_needs() && content_.was_too_short())
            throw picture_cut_short();
        return image;
    }

  private:
    /// To ask every plugin whether the content is its own takes long, since each of them is loaded.
    void choose_format(std::span<const std::uint8_t> bytes) {
        const bool is_jpeg = starts_jpeg(bytes);
        if (!is_jpeg && !starts_png(bytes)) {
            reader_.setDecideFormatFromContent(true);
            return;
        }
        reader_.setAutoDetectImageFormat(false);
        reader_.setFormat(is_jpeg ? "jpeg" : "png");
    }

    /// Those of the reader's own format, and of the same with three bytes and the opacity.
    int bytes_for_each_pixel() const {
        constexpr int bits_per_byte = 8;
        constexpr int of_an_unknown_format = 4;
        const QImage::Format format = reader_.imageFormat();
        const int own = format == QImage::Format_Invalid
                            ? of_an_unknown_format
                            : QImage::toPixelFormat(format).bitsPerPixel() / bits_per_byte;
        return own + bytes_per_pixel + 1;
    }

    /// Readers of these formats ask for no byte that the picture doesn't need.
    bool reads_what_it_needs() const { return format_ == "png" || format_ == "bmp"; }

    FileContent content_;
    QImageReader reader_;
    std::string format_;
};

QImage oriented(const QImage& image, QImageIOHandler::Transformations orientation) {
    QImage mirrored = image.mirrored(orientation.testFlag(QImageIOHandler::TransformationMirror),
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
            .opacity = std::move(opacity),
            .memory = memory};
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
    refuse_many_scans(bytes, reader.size().width(), reader.size().height());
    if (const auto pixels = decode_jpeg(bytes, memory))
        return laid(*pixels, reader.orientation(), memory);
    refuse_cut_short_jpeg(bytes);
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

} // namespace lookfar
