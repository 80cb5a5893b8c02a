#pragma once

#include "decoder/descriptor.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace lookfar::decoder {

/// The memory file in which pictures' bytes go to a decoder. It is used again, unless it is large:
/// a fresh page costs more than what is written to it.
class BodyFile {
  public:
    /// Throws std::bad_alloc.
    void write(std::span<const std::uint8_t> bytes);
    /// The bytes are needed no longer.
    void clear();

    const Descriptor& descriptor() const { return descriptor_; }
    /// Of the file.
    std::size_t size() const { return size_; }
    /// Of what was written last.
    std::size_t byte_count() const { return byte_count_; }

    /// Whether the decoder has this file already.
    bool is_known = false;

  private:
    Descriptor descriptor_;
    std::size_t size_ = 0;
    std::size_t byte_count_ = 0;
};

} // namespace lookfar::decoder
