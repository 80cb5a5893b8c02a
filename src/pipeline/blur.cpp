#include "pipeline/blur.h"

#include "runtime/controls/images.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace lookfar {

namespace {

/// Three bytes a pixel: the bytes three before and three behind are of the same colour.
constexpr std::ptrdiff_t pixel = 3;

/// Targets are taken in blocks of whole pixels that fit into the innermost cache.
constexpr std::ptrdiff_t block_size = 512 * pixel;

/// The sums of three of the four neighbours, all but the one three bytes before, for a block of
/// targets of which none is written yet.
void add_neighbours(const std::uint8_t* targets, std::ptrdiff_t count, std::ptrdiff_t stride,
                    std::uint16_t* sums) {
    for (std::ptrdiff_t index = 0; index < count; ++index)
        sums[index] = static_cast<std::uint16_t>(targets[index - stride] + targets[index + pixel] +
                                                 targets[index + stride]);
}

/// The rest goes from pixel to pixel, in a chain for each of the three colours.
void average_along_row(std::uint8_t* targets, std::ptrdiff_t count, const std::uint16_t* sums) {
    unsigned first = targets[-3];
    unsigned second = targets[-2];
    unsigned third = targets[-1];
    for (std::ptrdiff_t index = 0; index < count; index += pixel) {
        first = (first + sums[index]) / 4;
        second = (second + sums[index + 1]) / 4;
        third = (third + sums[index + 2]) / 4;
        targets[index] = static_cast<std::uint8_t>(first);
        targets[index + 1] = static_cast<std::uint8_t>(second);
        targets[index + 2] = static_cast<std::uint8_t>(third);
    }
}

/// Targets from `first` on whose four neighbours all lie in the buffer, as far as whole pixels
/// go; gives back the first target that is left.
std::ptrdiff_t blur_inside(std::uint8_t* bytes, std::ptrdiff_t first, std::ptrdiff_t end,
                           std::ptrdiff_t stride) {
    // The row above a block must be finished before the block is begun.
    const std::ptrdiff_t longest = std::min(block_size, stride - stride % pixel);
    std::array<std::uint16_t, block_size> sums{};
    while (longest > 0 && end - first >= pixel) {
        const std::ptrdiff_t count = std::min(longest, end - first - (end - first) % pixel);
        add_neighbours(bytes + first, count, stride, sums.data());
        average_along_row(bytes + first, count, sums.data());
        first += count;
    }
    return first;
}

/// Targets near or past the buffer's end, each access checked.
void blur_at_the_end(std::span<std::uint8_t> bytes, std::ptrdiff_t first, std::ptrdiff_t end,
                     std::ptrdiff_t stride) {
    const auto size = static_cast<std::ptrdiff_t>(bytes.size());
    const auto byte_at = [&](std::ptrdiff_t index) {
        return index < size ? int{bytes[static_cast<std::size_t>(index)]} : 0;
    };
    for (std::ptrdiff_t target = first; target < std::min(end, size); ++target) {
        const int sum = byte_at(target - stride) + byte_at(target - pixel) +
                        byte_at(target + pixel) + byte_at(target + stride);
        bytes[static_cast<std::size_t>(target)] = static_cast<std::uint8_t>(sum / 4);
    }
}

} // namespace

void blur(std::span<std::uint8_t> bytes, int height, int stride) {
    const std::ptrdiff_t first = std::ptrdiff_t{stride} + 4;
    const std::ptrdiff_t end = first + (std::ptrdiff_t{height} - 3) * (std::ptrdiff_t{stride} + 1);
    const auto size = static_cast<std::ptrdiff_t>(bytes.size());
    const std::ptrdiff_t reach = std::max<std::ptrdiff_t>(stride, pixel);
    if (height <= 3)
        return;
    const std::ptrdiff_t left =
        blur_inside(bytes.data(), first, std::min(end, size - reach), stride);
    blur_at_the_end(bytes, left, end, stride);
}

void BlurPicture(PictureBox& Pic) {
    const PictureReference picture = Pic.Picture;
    if (!picture || picture->height() <= 3)
        return;
    blur(picture->edit(), picture->height(), picture->stride());
    Pic.changed();
}

} // namespace lookfar
