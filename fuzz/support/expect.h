#pragma once

#include <cstdio>
#include <cstdlib>

namespace lookfar::fuzz {

/// Stops the run, as the fuzzer wants it, where something does not hold that has to.
inline void expect(bool holds, const char* invariant) {
    if (holds)
        return;
    std::fprintf(stderr, "This does not hold: %s\n", invariant);
    std::abort();
}

} // namespace lookfar::fuzz
