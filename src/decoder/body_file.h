#pragma once

#include "decoder/memory_file.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

namespace lookfar::decoder {

/// The memory file in which pictures' bytes go to a decoder. It is used again, unless it is large,
/// and written in place: a fresh page costs more than what is written to it, and so does a call of
/// the system for each page.
class BodyFile {
  public:
    /// Throws std::bad_alloc.
    void write(std::span<const std::uint8_t> bytes);
    /// The bytes are needed no longer.
    void clear();

    const Descriptor& descriptor() const { return descriptor_; }
    /// Of the file.
    std::size_t size() const { return place_ ? place_->size() : 0; }
    /// Of what was written last.
    std::size_t byte_count() const { return byte_count_; }

    /// Whether the decoder has this file already.
    bool is_known = false;

  private:
    Descriptor descriptor_;
    std::unique_ptr<Mapping> place_;
    std::size_t byte_count_ = 0;
};

} // namespace lookfar::decoder
