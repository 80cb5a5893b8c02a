#include "processor_time.h"

#include <algorithm>
#include <ctime>
#include <limits>

namespace lookfar::bench {

double processor_seconds() {
    std::timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

double least_processor_seconds(const std::function<void()>& work) {
    constexpr int rounds = 15;
    constexpr int runs_a_round = 3;
    work();
    double least = std::numeric_limits<double>::max();
    for (int round = 0; round < rounds; ++round) {
        const double start = processor_seconds();
        for (int run = 0; run < runs_a_round; ++run)
            work();
        least = std::min(least, (processor_seconds() - start) / runs_a_round);
    }
    return least;
}

} // namespace lookfar::bench
