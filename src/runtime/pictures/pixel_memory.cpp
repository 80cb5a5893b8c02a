#include "runtime/pictures/pixel_memory.h"

#include <new>

namespace lookfar {

Failure no_memory_for_a_picture() {
    return Failure(FailureKind::invalid_picture, "There is not enough memory for the picture.");
}

std::shared_ptr<std::uint8_t[]> allocate_pixels(std::size_t byte_count) {
    try {
        return std::make_shared_for_overwrite<std::uint8_t[]>(byte_count);
    } catch (const std::bad_alloc&) {
        throw no_memory_for_a_picture();
    }
}

} // namespace lookfar
