#include "pipeline/blur.h"

#include "runtime/controls/images.h"

#include <algorithm>
#include <cstddef>

namespace lookfar {

namespace {

/// Three bytes a pixel: the bytes three before and three behind are of the same colour.
constexpr std::ptrdiff_t pixel = 3;

/// Targets whose four neighbours all lie in the buffer.
void blur_inside(std::uint8_t* bytes, std::ptrdiff_t first, std::ptrdiff_t end,
                 std::ptrdiff_t stride) {
    for (std::ptrdiff_t target = first; target < end; ++target) {
        const int sum = bytes[target - stride] + bytes[target - pixel] + bytes[target + pixel] +
                        bytes[target + stride];
        bytes[target] = static_cast<std::uint8_t>(sum / 4);
    }
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
    const std::ptrdiff_t inside_end = std::clamp(size - reach, first, std::max(first, end));
    if (height <= 3)
        return;
    blur_inside(bytes.data(), first, inside_end, stride);
    blur_at_the_end(bytes, inside_end, end, stride);
}

void BlurPicture(PictureBox& Pic) {
    const PictureReference picture = Pic.Picture;
    if (!picture || picture->height() <= 3)
        return;
    blur(picture->edit(), picture->height(), picture->stride());
    Pic.changed();
}

} // namespace lookfar
