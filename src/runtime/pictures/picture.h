#pragma once

#include "runtime/pictures/original_file.h"
#include "runtime/pictures/pixel_memory.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>

namespace lookfar {

/// The pixels of one decoded picture: `height` rows of three bytes a pixel (red, green, blue),
/// top row first, each row padded with zeros to `stride` bytes, a multiple of four. `opacity`,
/// where there is any, holds a byte a pixel, without padding: 0 is transparent, 255 opaque.
///
/// Pixels are shared by whoever is given them and never change. A changed copy has its bytes from
/// `allocate`.
struct Pixels {
    int width = 0;
    int height = 0;
    int stride = 0;
    std::shared_ptr<const std::uint8_t[]> bytes;
    std::shared_ptr<const std::uint8_t[]> opacity = {};
    PixelAllocator allocate = allocate_pixels;
};

inline constexpr int bytes_per_pixel = 3;

/// What a picture may have at most, so that no small file can claim the whole memory.
inline constexpr long long max_pixels = 40'000'000;

/// The bytes from one row to the next for a width in pixels.
int stride_of(int width);

/// Sets the padding of the rows to zero.
void clear_padding(std::span<std::uint8_t> rows, int width);

/// One picture object. Controls hold it by reference, so that new bytes reach all that hold it.
/// Objects made from the same pixels share them; one that is rewritten has bytes of its own from
/// then on.
class Picture {
  public:
    explicit Picture(Pixels pixels, std::shared_ptr<const OriginalFile> original = {});

    int width() const { return pixels_.width; }
    int height() const { return pixels_.height; }
    int stride() const { return pixels_.stride; }

    /// height() * stride() bytes.
    std::span<const std::uint8_t> bytes() const;
    /// width() * height() bytes, or none for a picture that is opaque everywhere.
    std::span<const std::uint8_t> opacity() const;

    /// Replaces the bytes. The change is given those that stand and a place for the new ones, which
    /// it fills; from the second time on both are the same memory. Throws a `Failure` where there
    /// is no memory for bytes of the picture's own.
    using Change = std::function<void(std::span<const std::uint8_t> old_bytes,
                                      std::span<std::uint8_t> new_bytes)>;
    void rewrite(const Change& change);

    /// The file that the picture was decoded from, whatever was rewritten since; nothing for a
    /// picture of the program's own.
    const OriginalFile* original() const { return original_.get(); }

    /// Moves with every rewrite, so that a view knows when to paint again.
    std::uint64_t revision() const { return revision_; }

  private:
    std::size_t byte_count() const;

    Pixels pixels_;
    std::shared_ptr<const OriginalFile> original_;
    /// The picture's own bytes, once it was rewritten.
    std::shared_ptr<std::uint8_t[]> own_bytes_;
    std::uint64_t revision_ = 0;
};

using PictureReference = std::shared_ptr<Picture>;

} // namespace lookfar
