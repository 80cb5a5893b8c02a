#include "pictures/decode_pixels.h"

#include "pictures/image_pixels.h"
#include "pictures/jpeg_decoder.h"
#include "pictures/png_texts.h"
#include "pictures/readable_pictures.h"
#include "runtime/failure.h"

#include <QBuffer>
#include <QByteArray>
#include <QImage>
#include <QImageReader>
#include <QTransform>

#include <new>
#include <string>
#include <string_view>

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

/// In megabytes; Qt's own limit is lower than ours.
constexpr auto reader_allocation_limit =
    static_cast<int>(most_bytes_while_decoding / (1024LL * 1024));

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
        QImageReader::setAllocationLimit(reader_allocation_limit);
        format_ = format_of(bytes);
        // Any other reader would be loaded to be asked.
        reader_.setAutoDetectImageFormat(false);
        reader_.setFormat(QByteArray::fromStdString(std::string(format_)));
        if (format_.empty() || !reader_.canRead())
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
    std::string_view format_;
};

QImage oriented(const QImage& image, QImageIOHandler::Transformations orientation) {
    QImage mirrored = image.mirrored(orientation.testFlag(QImageIOHandler::TransformationMirror),
                                     orientation.testFlag(QImageIOHandler::TransformationFlip));
    if (!orientation.testFlag(QImageIOHandler::TransformationRotate90))
        return mirrored;
    constexpr double quarter_turn = 90;
    return mirrored.transformed(QTransform().rotate(quarter_turn));
}

Pixels laid(const Pixels& pixels, QImageIOHandler::Transformations orientation,
            const PixelAllocator& allocate) {
    if (orientation == QImageIOHandler::TransformationNone)
        return pixels;
    const QImage image(pixels.bytes.get(), pixels.width, pixels.height, pixels.stride,
                       QImage::Format_RGB888);
    return pixels_of(oriented(image, orientation), allocate);
}

Pixels decode_by_reader(Reader& reader, const PixelAllocator& allocate) {
    return pixels_of(oriented(reader.read(), reader.orientation()), allocate);
}

Pixels decode(std::span<const std::uint8_t> bytes, const PixelAllocator& allocate) {
    if (starts_png(bytes)) {
        const auto picture = without_png_texts(bytes);
        Reader reader(picture);
        return decode_by_reader(reader, allocate);
    }
    Reader reader(bytes);
    if (!reader.is_jpeg())
        return decode_by_reader(reader, allocate);
    refuse_many_scans(bytes, reader.size().width(), reader.size().height());
    if (const auto pixels = decode_jpeg(bytes, allocate))
        return laid(*pixels, reader.orientation(), allocate);
    refuse_cut_short_jpeg(bytes);
    return decode_by_reader(reader, allocate);
}

} // namespace

Pixels decode_pixels(std::span<const std::uint8_t> bytes, const PixelAllocator& allocate) {
    try {
        return decode(bytes, allocate);
    } catch (const std::bad_alloc&) {
        throw no_memory_for_a_picture();
    }
}

DecodedPicture decoded_picture(std::span<const std::uint8_t> bytes,
                               const PixelAllocator& allocate) {
    try {
        return decode_pixels(bytes, allocate);
    } catch (const Failure& failure) {
        return failure;
    }
}

} // namespace lookfar
