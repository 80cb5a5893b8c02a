#pragma once

#include <cstddef>

namespace lookfar {

// What a host may make a transfer read and do. Sizes are in bytes.

/// The heads of an answer and of the redirects to it, together.
inline constexpr std::size_t max_heads_size = std::size_t{256} * 1024;
/// With all parts of a multipart answer.
inline constexpr std::size_t max_body_size = std::size_t{64} * 1024 * 1024;
inline constexpr long max_redirects = 10;

} // namespace lookfar
