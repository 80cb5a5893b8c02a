#pragma once

#include "decoder/memory_file.h"
#include "decoder/messages.h"
#include "runtime/pictures/pixel_memory.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <mutex>

namespace lookfar::decoder {

/// The memory files in which a decoder lays its pixels, kept for the pictures after them. Changed
/// copies of pictures lie in them too while one is idle, so that there are no more of them than
/// pictures at a time.
///
/// It lives in a shared pointer, in which all pixels hold it. They may ask for memory, and be let
/// go, on any thread.
class KeptFiles : public std::enable_shared_from_this<KeptFiles> {
  public:
    /// Lends the idle files to the decoder: a bit for each.
    std::uint32_t lend_idle();
    /// Ends that loan.
    void reclaim();
    /// Keeps those of the bits no longer.
    void drop(std::uint32_t files);

    /// Keeps a file of the decoder's, in the place of the one that had the number.
    void keep(std::uint32_t number, std::shared_ptr<Mapping> file);
    /// The bytes of a file that the decoder has, in use until the last pointer to them goes. Null
    /// where it has none of that number with so many.
    std::shared_ptr<std::uint8_t[]> use(std::uint32_t number, std::size_t byte_count);

    /// Keeps none of the files. Those in use stay until they are let go.
    void forget();

    /// Memory in an idle file, or elsewhere.
    PixelAllocator allocator();

  private:
    enum class Owner { nobody, program, decoder };

    /// One of the places for a kept file, which may be empty.
    struct Place {
        bool has(std::size_t byte_count, Owner of) const {
            return file && owner == of && file->size() >= byte_count;
        }
        /// Is idle, and not wasted by half.
        bool fits(std::size_t byte_count) const {
            return has(byte_count, Owner::nobody) && file->size() / 2 <= byte_count;
        }

        std::shared_ptr<Mapping> file = nullptr;
        Owner owner = Owner::nobody;
    };

    std::shared_ptr<Mapping> claim(std::uint32_t number, std::size_t byte_count);
    std::shared_ptr<Mapping> claim_idle(std::size_t byte_count);
    std::shared_ptr<std::uint8_t[]> bytes_of(std::shared_ptr<Mapping> file);
    void let_go(const std::shared_ptr<Mapping>& file);

    std::mutex mutex_;
    std::array<Place, max_kept_files> places_;
};

} // namespace lookfar::decoder
