#pragma once

#include "runtime/failure.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>

namespace lookfar {

/// The failure of whoever finds too little memory for a picture.
Failure no_memory_for_a_picture();

/// Gives memory for so many bytes, of any content. Throws that failure where there is none. May be
/// called on any thread.
using PixelAllocator = std::function<std::shared_ptr<std::uint8_t[]>(std::size_t byte_count)>;

/// Memory that goes back to the system when the last pointer to it goes.
std::shared_ptr<std::uint8_t[]> allocate_pixels(std::size_t byte_count);

} // namespace lookfar
