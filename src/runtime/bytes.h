#pragma once

#include <cstdint>
#include <vector>

namespace lookfar {

using Bytes = std::vector<std::uint8_t>;

} // namespace lookfar
