#pragma once

#include "runtime/bytes.h"

#include <chrono>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace lookfar {

/// A picture as the file that its camera sent, which is what its user keeps.
struct OriginalFile {
    std::string name;
    std::shared_ptr<const Bytes> bytes;
};

/// A name for such a file, such as "Old Harbour 2026-11-26 14.03.22.jpg": a title, a time, and the
/// extension that belongs to the first bytes. It is UTF-8 of at most 255 bytes. What is missing or
/// special in the names of a usual file system stands as "_".
std::string original_file_name(std::string_view title, std::chrono::local_seconds time,
                               std::span<const std::uint8_t> bytes);

} // namespace lookfar
