#pragma once

#include <cstdint>
#include <span>

namespace lookfar {

class PictureBox;

/// Smooths the picture that a box holds, in place, and so for every control that holds it. Does
/// nothing for an empty box.
void BlurPicture(PictureBox& Pic);

/// Replaces the bytes of a buffer of `height` rows, `stride` bytes from one to the next, by the
/// truncated mean of the bytes one stride and three bytes before and behind, in place and in
/// ascending order: the bytes before are new already, the bytes behind are old still. The run
/// covers (height - 3) * (stride + 1) bytes from index stride + 4 on, across row ends and padding.
/// Bytes outside the buffer add nothing and are not written. A buffer of less than
/// four rows stays as it is.
void blur(std::span<std::uint8_t> bytes, int height, int stride);

} // namespace lookfar
