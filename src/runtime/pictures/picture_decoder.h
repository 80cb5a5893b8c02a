#pragma once

#include "runtime/pictures/picture.h"
#include "runtime/transfer.h"

#include <cstdint>
#include <memory>
#include <span>

namespace lookfar {

/// The largest picture that is decoded, in pixels.
inline constexpr long long largest_picture = 64LL * 1024 * 1024;

/// Decodes pictures (JPEG and GIF at least) by their content. What follows a picture's end is
/// ignored; of an animation the first frame is taken. Throws a `Failure` for bytes that are no
/// picture, for one that ends too early or is stored in too many scans, and, before any pixel is
/// allocated, for one of more than `largest_picture` pixels.
Pixels decode_pixels(std::span<const std::uint8_t> bytes);

/// Throws a `Failure` for a JPEG that is cut short, as `decode_pixels` does.
void refuse_cut_short_jpeg(std::span<const std::uint8_t> bytes);

/// Decodes, and remembers the pixels of the last picture while some picture holds them, so that
/// the same bytes, decoded again a moment later, yield a new picture object at no cost.
class PictureDecoder {
  public:
    PictureReference decode(Bytes bytes);

  private:
    Bytes last_bytes_;
    std::weak_ptr<std::uint8_t[]> last_pixels_;
    Pixels last_shape_;
};

} // namespace lookfar
