#pragma once

#include <chrono>
#include <thread>

namespace lookfar::driven {

/// Waits for a condition. False only after a time that no working program takes, however busy the
/// machine is; it is shorter than the program's own patience with a camera.
template <class Condition>
bool comes_true(Condition condition) {
    constexpr std::chrono::seconds longest(40);
    constexpr std::chrono::milliseconds between_looks(20);
    const auto end = std::chrono::steady_clock::now() + longest;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end)
            return false;
        std::this_thread::sleep_for(between_looks);
    }
    return true;
}

} // namespace lookfar::driven
