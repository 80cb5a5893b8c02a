#include "runtime/pictures/picture.h"

#include <algorithm>
#include <utility>

namespace lookfar {

namespace {
constexpr int bytes_per_pixel = 3;
constexpr int row_alignment = 4;
} // namespace

int stride_of(int width) {
    return (width * bytes_per_pixel + row_alignment - 1) / row_alignment * row_alignment;
}

Picture::Picture(Pixels pixels) : pixels_(std::move(pixels)) {}

std::span<const std::uint8_t> Picture::bytes() const {
    return {pixels_.bytes.get(), byte_count()};
}

std::span<const std::uint8_t> Picture::opacity() const {
    if (!pixels_.opacity)
        return {};
    return {pixels_.opacity.get(),
            static_cast<std::size_t>(pixels_.width) * static_cast<std::size_t>(pixels_.height)};
}

std::span<std::uint8_t> Picture::edit() {
    if (pixels_.bytes.use_count() > 1) {
        auto own = std::make_shared_for_overwrite<std::uint8_t[]>(byte_count());
        std::ranges::copy(bytes(), own.get());
        pixels_.bytes = std::move(own);
    }
    ++revision_;
    return {pixels_.bytes.get(), byte_count()};
}

std::size_t Picture::byte_count() const {
    return static_cast<std::size_t>(pixels_.stride) * static_cast<std::size_t>(pixels_.height);
}

} // namespace lookfar
