#pragma once

#include <cstddef>

namespace lookfar::decoder {

/// Memory that decoding may use beyond what the process has when it is locked in, in bytes: what
/// the largest picture needs twice, with its file and its pixels of before.
inline constexpr std::size_t max_memory = std::size_t{1} << 30U;

/// Sets the limits on this process's memory, files and descriptors, and that it leaves no core
/// file. Throws std::system_error.
void limit_resources();

} // namespace lookfar::decoder
