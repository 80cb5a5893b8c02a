#include "idle_bench.h"

#include "measured_program.h"
#include "message_loop.h"
#include "processor_time.h"

#include "desktop/desktop_platform.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <sys/resource.h>

namespace lookfar::bench {

namespace {

/// The windows come up and paint their first picture meanwhile.
constexpr std::chrono::seconds settling{2};
constexpr std::chrono::seconds rest{10};

/// Nobody listens there.
constexpr const char* failing_url = "http://127.0.0.1:9/picture.jpg";

struct Cost {
    double share_of_core;
    double wake_ups_a_second;
    bool has_failed;
};

/// How often a thread of this process has gone to sleep; it woke up as often.
long sleeps() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_nvcsw;
}

Cost cost_of_rest(DesktopPlatform& platform, const std::string& url, ShownWindow window,
                  IdleTicks idle_ticks) {
    MeasuredProgram measured(platform, url, idle_ticks);
    measured.show(window);
    run_loop_for(platform, settling);
    constexpr auto seconds = static_cast<double>(rest.count());
    const double processor_before = processor_seconds();
    const long sleeps_before = sleeps();
    run_loop_for(platform, rest);
    return {.share_of_core = (processor_seconds() - processor_before) / seconds,
            .wake_ups_a_second = static_cast<double>(sleeps() - sleeps_before) / seconds,
            .has_failed = measured.has_failed()};
}

void measure(benchmark::State& state, DesktopPlatform& platform, const std::string& url,
             ShownWindow window) {
    Cost cost{};
    for (auto unused : state) {
        (void)unused;
        cost = cost_of_rest(platform, url, window, IdleTicks::held_back);
    }
    const Cost blind = cost_of_rest(platform, url, window, IdleTicks::blind);
    const bool should_fail = url == failing_url;
    if (cost.has_failed != should_fail || blind.has_failed != should_fail)
        state.SkipWithError("The program is not in the state that was to be measured.");
    state.counters["share_of_core"] = cost.share_of_core;
    state.counters["wake_ups_per_s"] = cost.wake_ups_a_second;
    state.counters["blind_share_of_core"] = blind.share_of_core;
    state.counters["blind_in_rests"] = blind.share_of_core / cost.share_of_core;
}

} // namespace

void register_rests(DesktopPlatform& platform, const std::string& url) {
    const auto add = [&platform](const char* name, const std::string& camera, ShownWindow window) {
        benchmark::RegisterBenchmark(name, [&platform, camera, window](benchmark::State& state) {
            measure(state, platform, camera, window);
        })->Iterations(1);
    };
    add("rest_in_main_window", url, ShownWindow::main);
    add("rest_in_fullscreen_window", url, ShownWindow::fullscreen);
    add("rest_in_main_window_failed", failing_url, ShownWindow::main);
    add("rest_in_fullscreen_window_failed", failing_url, ShownWindow::fullscreen);
}

} // namespace lookfar::bench
