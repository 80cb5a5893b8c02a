#pragma once

#include "runtime/pictures/picture.h"

#include <cstddef>
#include <cstdint>
#include <memory>

namespace lookfar {

/// How the pixels of a picture lie in one piece of memory: the rows, and the opacity right behind
/// them where there is any. All sizes are in bytes; width and height are positive.
class PixelLayout {
  public:
    PixelLayout(int width, int height, bool has_opacity)
        : width_(width), height_(height), has_opacity_(has_opacity) {}

    std::size_t row_bytes() const {
        return static_cast<std::size_t>(stride_of(width_)) * static_cast<std::size_t>(height_);
    }
    std::size_t opacity_bytes() const {
        return has_opacity_ ? static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_)
                            : 0;
    }
    std::size_t byte_count() const { return row_bytes() + opacity_bytes(); }

    /// The pixels in such a piece of memory.
    Pixels pixels_in(const std::shared_ptr<const std::uint8_t[]>& bytes) const {
        Pixels pixels{
            .width = width_, .height = height_, .stride = stride_of(width_), .bytes = bytes};
        if (has_opacity_)
            pixels.opacity = {bytes, bytes.get() + row_bytes()};
        return pixels;
    }

  private:
    int width_;
    int height_;
    bool has_opacity_;
};

} // namespace lookfar
