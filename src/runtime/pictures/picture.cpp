#include "runtime/pictures/picture.h"

#include <algorithm>
#include <utility>

namespace lookfar {

namespace {
constexpr int row_alignment = 4;
} // namespace

int stride_of(int width) {
    return (width * bytes_per_pixel + row_alignment - 1) / row_alignment * row_alignment;
}

void clear_padding(std::span<std::uint8_t> rows, int width) {
    const auto stride = static_cast<std::size_t>(stride_of(width));
    const auto used = static_cast<std::size_t>(width) * bytes_per_pixel;
    for (; !rows.empty(); rows = rows.subspan(stride))
        std::ranges::fill(rows.first(stride).subspan(used), std::uint8_t{0});
}

Picture::Picture(Pixels pixels, std::shared_ptr<const OriginalFile> original)
    : pixels_(std::move(pixels)), original_(std::move(original)) {}

std::span<const std::uint8_t> Picture::bytes() const {
    return {pixels_.bytes.get(), byte_count()};
}

std::span<const std::uint8_t> Picture::opacity() const {
    if (!pixels_.opacity)
        return {};
    return {pixels_.opacity.get(),
            static_cast<std::size_t>(pixels_.width) * static_cast<std::size_t>(pixels_.height)};
}

void Picture::rewrite(const Change& change) {
    const auto old_bytes = pixels_.bytes;
    if (!own_bytes_)
        own_bytes_ = pixels_.allocate(byte_count());
    change({old_bytes.get(), byte_count()}, {own_bytes_.get(), byte_count()});
    pixels_.bytes = own_bytes_;
    ++revision_;
}

std::size_t Picture::byte_count() const {
    return static_cast<std::size_t>(pixels_.stride) * static_cast<std::size_t>(pixels_.height);
}

} // namespace lookfar
