#include "message_loop.h"

#include "runtime/platform.h"

#include <memory>
#include <thread>

namespace lookfar::bench {

void run_loop_for(Platform& platform, std::chrono::milliseconds duration) {
    const auto is_over = std::make_shared<bool>(false);
    const std::jthread alarm([&platform, duration, is_over] {
        std::this_thread::sleep_for(duration);
        platform.post([is_over] { *is_over = true; });
    });
    platform.wait_until([&] { return *is_over; });
}

} // namespace lookfar::bench
