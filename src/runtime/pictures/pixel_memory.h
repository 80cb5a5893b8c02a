#pragma once

#include "runtime/failure.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>

namespace lookfar {

/// The failure of whoever finds too little memory for a picture.
Failure no_memory_for_a_picture();

/// Gives memory for so many bytes at least, of any content. Throws a `Failure` where there is none.
using PixelAllocator = std::function<std::shared_ptr<std::uint8_t[]>(std::size_t byte_count)>;

/// Memory for pixels that the next picture uses again. A page that goes back to the system and is
/// asked for anew costs more than the decoding of what stands on it.
///
/// Copies of a PixelMemory share what is kept. It may be used on several threads.
class PixelMemory {
  public:
    /// The most bytes that are kept while nobody uses them.
    static constexpr std::size_t most_idle_bytes = std::size_t{32} * 1024 * 1024;

    PixelMemory();

    /// A buffer of that many bytes at least, of any content. It is kept for the next picture when
    /// the last pointer to it goes. Throws a `Failure` where there is no memory.
    std::shared_ptr<std::uint8_t[]> take(std::size_t byte_count) const;

    PixelAllocator allocator() const;

  private:
    class Idle;
    struct Loan;

    std::shared_ptr<Idle> idle_;
};

} // namespace lookfar
