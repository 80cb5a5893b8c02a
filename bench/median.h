#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

namespace lookfar::bench {

/// Of at least one figure; of an even number the higher of the two in the middle.
inline double median_of(std::vector<double> figures) {
    const auto middle = figures.begin() + std::ssize(figures) / 2;
    std::ranges::nth_element(figures, middle);
    return *middle;
}

} // namespace lookfar::bench
