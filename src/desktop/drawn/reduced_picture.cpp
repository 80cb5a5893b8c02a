#include "desktop/drawn/reduced_picture.h"

#include <QPainter>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace lookfar::desktop {

namespace {

/// From this factor on a pixel whose edges lie within pixels of the picture is made of whole ones
/// all the same. It is then off its place by an eighth of its length at most.
constexpr int least_coarse_factor = 4;

/// Up to this factor the sums of a column's bytes fit into their type.
constexpr int largest_factor = 256;

using ColumnSums = std::vector<std::uint16_t>;

/// Adds up, column by column, the bytes of some rows of the picture.
void add_rows(std::span<const std::uint8_t> rows, std::size_t stride, ColumnSums& sums) {
    std::ranges::fill(sums, std::uint16_t{0});
    for (; !rows.empty(); rows = rows.subspan(stride))
        for (std::size_t index = 0; index < sums.size(); ++index)
            sums[index] = static_cast<std::uint16_t>(sums[index] + rows[index]);
}

/// Multiplies by the reciprocal, which is quicker than to divide every colour of every pixel.
class Average {
  public:
    explicit Average(unsigned count) : share_((one + count / 2) / count) {}

    int of(std::uint64_t sum) const { return static_cast<int>((sum * share_ + one / 2) / one); }

  private:
    static constexpr std::uint64_t one = std::uint64_t{1} << 32U;
    std::uint64_t share_;
};

/// Where each of some pixels begins, in whole pixels of the picture, and where the last one ends.
std::vector<int> places(int pixels, int pictures_pixels) {
    std::vector<int> places;
    for (long long pixel = 0; pixel <= pixels; ++pixel)
        places.push_back(static_cast<int>(pixel * pictures_pixels / pixels));
    return places;
}

struct PixelSum {
    void add(const std::uint16_t* column) {
        red += column[0];
        green += column[1];
        blue += column[2];
    }
    QRgb averaged(const Average& average) const {
        return qRgb(average.of(red), average.of(green), average.of(blue));
    }

    unsigned red = 0;
    unsigned green = 0;
    unsigned blue = 0;
};

/// The places of two pixels may lie one column further apart than those of others. That column is
/// added by itself: a loop of one length is the quicker one.
void average_columns(const ColumnSums& sums, const std::vector<int>& places, unsigned rows,
                     std::span<QRgb> pixels) {
    const auto fewest = static_cast<int>(sums.size() / bytes_per_pixel / pixels.size());
    const Average of_fewest(rows * static_cast<unsigned>(fewest));
    const Average of_one_more(rows * (static_cast<unsigned>(fewest) + 1));
    const std::uint16_t* next = sums.data();
    for (std::size_t index = 0; index < pixels.size(); ++index) {
        PixelSum sum;
        for (int column = 0; column < fewest; ++column, next += bytes_per_pixel)
            sum.add(next);
        const bool has_one_more = places[index + 1] - places[index] > fewest;
        if (has_one_more) {
            sum.add(next);
            next += bytes_per_pixel;
        }
        pixels[index] = sum.averaged(has_one_more ? of_one_more : of_fewest);
    }
}

std::span<QRgb> pixels_of_row(QImage& image, int row) {
    return {reinterpret_cast<QRgb*>(image.scanLine(row)), static_cast<std::size_t>(image.width())};
}

/// Whether squares of whole pixels make each pixel of the size.
bool can_be_reduced_to(const QSize& size, const QSize& picture) {
    const int factor = std::min(picture.width() / size.width(), picture.height() / size.height());
    const int longest = std::max(picture.width() / size.width(), picture.height() / size.height());
    const bool is_exact = size * factor == picture;
    return longest < largest_factor && (factor >= least_coarse_factor || (is_exact && factor > 1));
}

/// The largest factor that divides both sides of the picture and leaves it as large as the size.
int dividing_factor(const QSize& size, const QSize& picture) {
    int factor = std::min(
        {picture.width() / size.width(), picture.height() / size.height(), largest_factor});
    while (factor > 1 && (picture.width() % factor != 0 || picture.height() % factor != 0))
        --factor;
    return std::max(factor, 1);
}

} // namespace

QSize natural_size(const Picture& picture) {
    return {picture.width(), picture.height()};
}

QImage wrapped(const Picture& picture) {
    return {picture.bytes().data(), picture.width(), picture.height(), picture.stride(),
            QImage::Format_RGB888};
}

QImage copied(const Picture& picture) {
    QImage image = wrapped(picture).convertToFormat(QImage::Format_RGB32);
    if (!picture.opacity().empty())
        image.setAlphaChannel(QImage(picture.opacity().data(), picture.width(), picture.height(),
                                     picture.width(), QImage::Format_Alpha8));
    return image;
}

QSize reduced_size(const Picture& picture, const QSize& size) {
    const QSize natural = natural_size(picture);
    if (size.isEmpty())
        return natural;
    return can_be_reduced_to(size, natural) ? size : natural / dividing_factor(size, natural);
}

void reduce(const Picture& picture, const QSize& size, QImage& image) {
    if (image.size() != size || image.format() != QImage::Format_RGB32)
        image = QImage(size, QImage::Format_RGB32);
    if (size == natural_size(picture)) {
        QPainter(&image).drawImage(QPoint(), wrapped(picture));
        return;
    }
    const auto stride = static_cast<std::size_t>(picture.stride());
    const std::vector<int> rows = places(size.height(), picture.height());
    const std::vector<int> columns = places(size.width(), picture.width());
    ColumnSums sums(static_cast<std::size_t>(picture.width()) * bytes_per_pixel);
    std::span<const std::uint8_t> bytes = picture.bytes();
    for (int row = 0; row < size.height(); ++row) {
        const int count =
            rows[static_cast<std::size_t>(row) + 1] - rows[static_cast<std::size_t>(row)];
        const std::size_t step = stride * static_cast<std::size_t>(count);
        add_rows(bytes.first(step), stride, sums);
        average_columns(sums, columns, static_cast<unsigned>(count), pixels_of_row(image, row));
        bytes = bytes.subspan(step);
    }
}

} // namespace lookfar::desktop
