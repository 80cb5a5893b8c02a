#include "desktop/drawn/reduced_picture.h"

#include <QPainter>

#include <algorithm>
#include <cstdint>
#include <span>
#include <vector>

namespace lookfar::desktop {

namespace {

/// Up to this factor the sums over a square fit into their types, and the rounding of the
/// reciprocal moves an average by less than a half.
constexpr int largest_factor = 16;

/// Adds up, column by column, the bytes of some rows of the picture.
void add_rows(std::span<const std::uint8_t> rows, std::size_t stride,
              std::vector<std::uint16_t>& sums) {
    std::ranges::fill(sums, std::uint16_t{0});
    for (; !rows.empty(); rows = rows.subspan(stride))
        for (std::size_t index = 0; index < sums.size(); ++index)
            sums[index] = static_cast<std::uint16_t>(sums[index] + rows[index]);
}

/// Multiplies by the reciprocal, which is quicker than to divide every colour of every pixel.
class Average {
  public:
    explicit Average(unsigned count) : share_((one + count / 2) / count) {}

    int of(unsigned sum) const { return static_cast<int>((sum * share_ + one / 2) / one); }

  private:
    static constexpr unsigned one = 65536;
    unsigned share_;
};

void average_columns(std::span<const std::uint16_t> sums, unsigned factor, std::span<QRgb> pixels) {
    const Average average(factor * factor);
    auto sum = sums.begin();
    for (QRgb& pixel : pixels) {
        unsigned red = 0;
        unsigned green = 0;
        unsigned blue = 0;
        for (unsigned column = 0; column < factor; ++column, sum += bytes_per_pixel) {
            red += sum[0];
            green += sum[1];
            blue += sum[2];
        }
        pixel = qRgb(average.of(red), average.of(green), average.of(blue));
    }
}

std::span<QRgb> pixels_of_row(QImage& image, int row) {
    return {reinterpret_cast<QRgb*>(image.scanLine(row)), static_cast<std::size_t>(image.width())};
}

} // namespace

int reduction_for(const Picture& picture, const QSize& size) {
    if (size.isEmpty())
        return 1;
    int factor = std::min(
        {picture.width() / size.width(), picture.height() / size.height(), largest_factor});
    while (factor > 1 && (picture.width() % factor != 0 || picture.height() % factor != 0))
        --factor;
    return std::max(factor, 1);
}

QImage wrapped(const Picture& picture) {
    return {picture.bytes().data(), picture.width(), picture.height(), picture.stride(),
            QImage::Format_RGB888};
}

void reduce(const Picture& picture, int factor, QImage& image) {
    const QSize size(picture.width() / factor, picture.height() / factor);
    if (image.size() != size || image.format() != QImage::Format_RGB32)
        image = QImage(size, QImage::Format_RGB32);
    if (factor == 1) {
        QPainter(&image).drawImage(QPoint(), wrapped(picture));
        return;
    }
    const auto stride = static_cast<std::size_t>(picture.stride());
    const std::size_t step = stride * static_cast<std::size_t>(factor);
    std::vector<std::uint16_t> sums(static_cast<std::size_t>(picture.width()) * bytes_per_pixel);
    std::span<const std::uint8_t> rows = picture.bytes();
    for (int row = 0; row < image.height(); ++row, rows = rows.subspan(step)) {
        add_rows(rows.first(step), stride, sums);
        average_columns(sums, static_cast<unsigned>(factor), pixels_of_row(image, row));
    }
}

} // namespace lookfar::desktop
