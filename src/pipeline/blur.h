#pragma once

#include <cstdint>
#include <span>

namespace lookfar {

class PictureBox;

/// Smooths the picture that a box holds, in place, and so for every control that holds it. Does
/// nothing for an empty box.
void BlurPicture(PictureBox& Pic);

/// Filters the bytes of a buffer of `height` rows, `stride` bytes from one to the next, into
/// another of the same size, which may be the same memory. A new byte is the truncated mean of the
/// bytes one stride and three bytes before and behind, in ascending order: the bytes before are new
/// already, the bytes behind are old still. The run covers (height - 3) * (stride + 1) bytes from
/// index stride + 4 on, across row ends and padding; the other bytes stay as they are. Bytes
/// outside the buffer add nothing and are not written. All bytes of a buffer of less than four rows
/// stay.
void blur(std::span<const std::uint8_t> old_bytes, std::span<std::uint8_t> new_bytes, int height,
          int stride);

} // namespace lookfar
