#pragma once

#include "decoder/memory_file.h"
#include "decoder/messages.h"
#include "runtime/pictures/pixel_memory.h"

#include <cstddef>
#include <cstdint>
#include <memory>

namespace lookfar::decoder {

/// The memory files in which a decoder lays its pixels, kept for the pictures after them. Changed
/// copies of pictures lie in them too while one is idle, so that there are no more of them than
/// pictures at a time.
///
/// Copies share the files. Pixels may ask for memory, and be let go, on any thread.
class KeptFiles {
  public:
    KeptFiles();

    /// Lends the idle files to the decoder: a bit for each.
    std::uint32_t give_idle() const;
    /// Ends that loan.
    void reclaim() const;
    /// Keeps those of the bits no longer.
    void drop(std::uint32_t files) const;

    /// Keeps a file of the decoder's, in the place of the one that had the number.
    void keep(std::uint32_t number, std::shared_ptr<Mapping> file) const;
    /// The bytes of a file that the decoder has, in use until the last pointer to them goes. Null
    /// where it has none of that number with so many.
    std::shared_ptr<std::uint8_t[]> use(std::uint32_t number, std::size_t byte_count) const;

    /// Keeps none of the files. Those in use stay until they are let go.
    void forget() const;

    /// Memory in an idle file, or elsewhere.
    PixelAllocator allocator() const;

  private:
    class Files;
    struct Loan;

    std::shared_ptr<Files> files_;
};

} // namespace lookfar::decoder
