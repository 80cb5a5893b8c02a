#pragma once

#include "runtime/failure.h"

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

/// Whether a statement goes through without a `Failure`.
template <class Statement>
bool goes_well(Statement&& statement) {
    try {
        statement();
        return true;
    } catch (const Failure&) {
        return false;
    }
}

} // namespace lookfar::fuzz
