#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

namespace lookfar::bench {

/// The middle of figures that were measured many times, and what the middle half lies between.
struct Spread {
    double lower_quartile;
    double median;
    double upper_quartile;
};

/// Of at least one figure.
inline Spread spread_of(std::vector<double> figures) {
    std::ranges::sort(figures);
    const std::size_t last = figures.size() - 1;
    return {figures[last / 4], figures[last / 2], figures[last - last / 4]};
}

} // namespace lookfar::bench
