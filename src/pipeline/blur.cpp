#include "pipeline/blur.h"

#include "runtime/controls/images.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>

namespace lookfar {

namespace {

/// Three bytes a pixel: the bytes three before and three behind are of the same colour.
constexpr std::ptrdiff_t pixel = 3;

/// Targets are computed two pixels at a time.
constexpr std::ptrdiff_t step = 2 * pixel;

/// The steps are computed in blocks that fit into the innermost cache.
constexpr std::ptrdiff_t block_size = 1024 * step;

/// Values that the processor handles at once: those of a step, and some of the next one, which are
/// not used.
constexpr std::ptrdiff_t lanes = 8;
using Sums [[gnu::vector_size(lanes * sizeof(std::uint16_t))]] = std::uint16_t;
using Bytes [[gnu::vector_size(lanes)]] = std::uint8_t;

constexpr std::ptrdiff_t beyond_step = lanes - step;

/// Where the filter reads and writes: the same index in both is the same byte.
struct Buffers {
    std::span<const std::uint8_t> old_bytes;
    std::span<std::uint8_t> new_bytes;
};

/// The sums of three of the four neighbours, all but the one three bytes before, for a block of
/// targets of which none is written yet.
void add_neighbours(const std::uint8_t* above, const std::uint8_t* old_targets,
                    std::ptrdiff_t count, std::ptrdiff_t stride, std::uint16_t* sums) {
    for (std::ptrdiff_t index = 0; index < count; ++index)
        sums[index] = static_cast<std::uint16_t>(above[index] + old_targets[index + pixel] +
                                                 old_targets[index + stride]);
}

Sums load(const std::uint16_t* sums) {
    Sums loaded{};
    std::memcpy(&loaded, sums, sizeof loaded);
    return loaded;
}

/// What this writes beyond the step is computed next, and nothing reads it until then. To leave it
/// out would take two writes.
void store(const Sums& means, std::uint8_t* targets) {
    const Bytes bytes = __builtin_convertvector(means, Bytes);
    std::memcpy(targets, &bytes, sizeof bytes);
}

/// The means of a block, from its sums.
///
/// Each colour is a chain, mean[i] = (mean[i - 3] + sum[i]) / 4. Truncating divisions nest,
/// ((m + a) / 4 + b) / 4 = (m + a + 4 * b) / 16, and so two links make one, which leaves no target
/// of a step waiting for another. The sum before a block is four times the mean before it, which
/// leads there from nothing: (0 + 4 * mean) / 4.
void average_along_row(std::uint8_t* targets, std::ptrdiff_t count, std::uint16_t* sums) {
    Sums means{};
    for (std::ptrdiff_t colour = 0; colour < pixel; ++colour) {
        const std::uint8_t mean_before = targets[colour - pixel];
        sums[colour - pixel] = static_cast<std::uint16_t>(4 * mean_before);
        means[colour + pixel] = mean_before;
    }
    for (std::ptrdiff_t index = 0; index < count; index += step) {
        means = (means + load(sums + index - pixel) + 4 * load(sums + index)) / 16;
        store(means, targets + index);
    }
}

/// Targets from `first` on whose four neighbours all lie in the buffer, as far as whole steps go
/// and leave some before the end; gives back the first target that is left.
std::ptrdiff_t blur_inside(const Buffers& buffers, std::ptrdiff_t first, std::ptrdiff_t end,
                           std::ptrdiff_t stride) {
    // The row above a block must be finished before the block is begun.
    const std::ptrdiff_t longest = std::min(block_size, stride - stride % step);
    std::array<std::uint16_t, pixel + block_size + beyond_step> buffer{};
    std::uint16_t* const sums = buffer.data() + pixel;
    end -= beyond_step;
    while (longest > 0 && end - first >= step) {
        const std::ptrdiff_t count = std::min(longest, end - first - (end - first) % step);
        std::uint8_t* const targets = buffers.new_bytes.data() + first;
        add_neighbours(targets - stride, buffers.old_bytes.data() + first, count, stride, sums);
        average_along_row(targets, count, sums);
        first += count;
    }
    return first;
}

/// Targets near or past the buffer's end, each access checked.
void blur_at_the_end(const Buffers& buffers, std::ptrdiff_t first, std::ptrdiff_t end,
                     std::ptrdiff_t stride) {
    const auto size = std::ssize(buffers.new_bytes);
    const auto byte_at = [size](std::span<const std::uint8_t> bytes, std::ptrdiff_t index) {
        return index < size ? int{bytes[static_cast<std::size_t>(index)]} : 0;
    };
    for (std::ptrdiff_t target = first; target < std::min(end, size); ++target) {
        const int sum = byte_at(buffers.new_bytes, target - stride) +
                        byte_at(buffers.new_bytes, target - pixel) +
                        byte_at(buffers.old_bytes, target + pixel) +
                        byte_at(buffers.old_bytes, target + stride);
        buffers.new_bytes[static_cast<std::size_t>(target)] = static_cast<std::uint8_t>(sum / 4);
    }
}

void keep(const Buffers& buffers, std::ptrdiff_t first, std::ptrdiff_t end) {
    if (buffers.old_bytes.data() == buffers.new_bytes.data())
        return;
    std::copy(buffers.old_bytes.begin() + first, buffers.old_bytes.begin() + end,
              buffers.new_bytes.begin() + first);
}

} // namespace

void blur(std::span<const std::uint8_t> old_bytes, std::span<std::uint8_t> new_bytes, int height,
          int stride) {
    const Buffers buffers{.old_bytes = old_bytes, .new_bytes = new_bytes};
    const auto size = std::ssize(new_bytes);
    if (height <= 3) {
        keep(buffers, 0, size);
        return;
    }
    const std::ptrdiff_t first = std::ptrdiff_t{stride} + 4;
    const std::ptrdiff_t end = first + (std::ptrdiff_t{height} - 3) * (std::ptrdiff_t{stride} + 1);
    const std::ptrdiff_t reach = std::max<std::ptrdiff_t>(stride, pixel);
    keep(buffers, 0, std::min(first, size));
    const std::ptrdiff_t left = blur_inside(buffers, first, std::min(end, size - reach), stride);
    blur_at_the_end(buffers, left, end, stride);
    keep(buffers, std::min(end, size), size);
}

void BlurPicture(PictureBox& Pic) {
    const PictureReference picture = Pic.Picture;
    if (!picture || picture->height() <= 3)
        return;
    picture->rewrite([&](auto old_bytes, auto new_bytes) {
        blur(old_bytes, new_bytes, picture->height(), picture->stride());
    });
    Pic.changed();
}

} // namespace lookfar
