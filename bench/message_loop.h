#pragma once

#include <chrono>

namespace lookfar {
class Platform;
}

namespace lookfar::bench {

/// Runs the message loop for a while, itself waking it only once, at the end.
void run_loop_for(Platform& platform, std::chrono::milliseconds duration);

} // namespace lookfar::bench
