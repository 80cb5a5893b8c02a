#pragma once

#include <cstdint>
#include <vector>

namespace lookfar::testing {

/// The blur filter step by step, every access checked: what `blur` has to come to.
void blur_literally(std::vector<std::uint8_t>& bytes, int height, int stride);

} // namespace lookfar::testing
