#pragma once

#include "runtime/descriptor.h"

#include <cstddef>
#include <cstdint>

namespace lookfar::decoder {

/// A new file of so many bytes, zeros, that lies in memory and has no name. It can't shrink, so
/// that nobody who reads it in place can be made to read behind its end. Throws std::bad_alloc.
Descriptor make_memory_file(std::size_t size);

/// Whether a descriptor from elsewhere is such a file and has so many bytes at least.
bool is_memory_file(const Descriptor& descriptor, std::size_t least_size);

enum class Access { read, write };

/// A memory file's bytes in place. Other processes that have the file may change them at any time.
class Mapping {
  public:
    /// Throws std::bad_alloc.
    Mapping(const Descriptor& file, std::size_t size, Access access);
    Mapping(const Mapping&) = delete;
    Mapping& operator=(const Mapping&) = delete;
    ~Mapping();

    std::uint8_t* data() const { return data_; }
    std::size_t size() const { return size_; }

  private:
    std::uint8_t* data_;
    std::size_t size_;
};

} // namespace lookfar::decoder
