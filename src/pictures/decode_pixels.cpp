#include "pictures/decode_pixels.h"

#include "pictures/exif_orientation.h"
#include "pictures/gif_blocks.h"
#include "pictures/image_pixels.h"
#include "pictures/jpeg_decoder.h"
#include "pictures/png_chunks.h"
#include "pictures/readable_pictures.h"
#include "pictures/webp_chunks.h"
#include "runtime/failure.h"
#include "runtime/pictures/picture_formats.h"

#include <QBuffer>
#include <QByteArray>
#include <QImage>
#include <QImageReader>
#include <QTransform>

#include <climits>
#include <new>
#include <string_view>

namespace lookfar {

namespace {

void refuse_size(QSize size) {
    if (size.isEmpty())
        throw Failure(FailureKind::invalid_picture, "The picture has no size.");
    refuse_large(size.width(), size.height());
}

/// A bitmap whose top row comes first has a negative height, and a picture without a header that
/// can be read two negative sides.
QSize without_direction(QSize size) {
    const bool is_top_down = size.width() >= 0 && size.height() < 0 && size.height() > INT_MIN;
    return is_top_down ? QSize(size.width(), -size.height()) : size;
}

/// In megabytes; Qt's own limit is lower than ours.
constexpr auto reader_allocation_limit =
    static_cast<int>(max_bytes_while_decoding / (1024LL * 1024));

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
    qint64 readData(char* data, qint64 max_size) override {
        const qint64 count = QBuffer::readData(data, max_size);
        was_too_short_ = was_too_short_ || count < max_size;
        return count;
    }

  private:
    bool was_too_short_ = false;
};

/// Qt's reader over the bytes of a picture that may be decoded.
class Reader {
  public:
    explicit Reader(std::span<const std::uint8_t> bytes)
        : bytes_(bytes), content_(bytes), reader_(&content_) {
        QImageReader::setAllocationLimit(reader_allocation_limit);
        format_ = format_of(bytes);
        // Any other reader would be loaded to be asked.
        reader_.setAutoDetectImageFormat(false);
        reader_.setFormat(QByteArray::fromStdString(std::string(format_)));
        if (format_.empty() || !reader_.canRead())
            throw Failure(FailureKind::unknown_picture_format,
                          "The camera's answer is not a picture.");
        if (!size().isValid())
            refuse_unreadable();
        refuse_size(size());
    }

    bool is_jpeg() const { return format_ == "jpeg"; }
    QSize size() const { return without_direction(reader_.size()); }
    /// Qt's readers of the other formats look at no orientation mark.
    QImageIOHandler::Transformations orientation() const {
        return is_jpeg() ? reader_.transformation() : orientation_in_exif(exif());
    }

    QImage read() {
        refuse_hungry(size().width(), size().height(), bytes_for_each_pixel());
        QImage image = reader_.read();
        if (image.isNull())
            refuse_unreadable();
        refuse_size(image.size());
        if (is_cut_short())
            throw picture_cut_short();
        return image;
    }

  private:
    std::span<const std::uint8_t> exif() const {
        if (format_ == "png")
            return exif_in_png(bytes_);
        return format_ == "webp" ? exif_in_webp(bytes_) : std::span<const std::uint8_t>();
    }

    [[noreturn]] void refuse_unreadable() const {
        throw is_cut_short() ? picture_cut_short() : picture_not_decodable();
    }

    bool is_cut_short() const {
        if (is_jpeg())
            return is_cut_short_jpeg(bytes_);
        if (format_ == "gif")
            return is_cut_short_gif(bytes_);
        if (format_ == "webp")
            return is_cut_short_webp(bytes_);
        // The readers of the others ask for no byte that the picture doesn't need.
        return content_.was_too_short();
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

    std::span<const std::uint8_t> bytes_;
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
    if (format_of(bytes) == "png") {
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
