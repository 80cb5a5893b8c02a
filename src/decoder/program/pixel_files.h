#pragma once

#include "decoder/memory_file.h"
#include "decoder/messages.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>

namespace lookfar::decoder {

/// Memory files to decode into. They are lent to the program, and used again once it has given them
/// back: a page that is mapped anew for each picture costs more than what is decoded onto it.
class PixelFiles {
  public:
    /// Memory for so many bytes. Throws a `Failure` where there is none.
    std::shared_ptr<std::uint8_t[]> allocate(std::size_t byte_count);

    /// A file as it is lent: how the reply names it, and its descriptor, unless the program has it.
    struct Lent {
        std::uint32_t number = max_kept_files;
        Descriptor descriptor;
    };

    /// Lends the file that holds what `allocate` gave at that place.
    Lent lend(const std::uint8_t* place);

    /// The files that the program leaves to this process for one picture, a bit for each. All
    /// others that it has are in use there.
    void set_idle(std::uint32_t files);

    /// A bit for each file that the program had and that is kept no longer; told once.
    std::uint32_t collect_dropped();

  private:
    struct File;

    std::shared_ptr<File> idle_file(std::size_t byte_count);
    std::shared_ptr<File> new_file(std::size_t byte_count);

    std::array<std::shared_ptr<File>, max_kept_files> files_;
    std::uint32_t dropped_ = 0;
};

} // namespace lookfar::decoder
