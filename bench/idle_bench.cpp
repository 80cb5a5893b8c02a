#include "idle_bench.h"

#include "processor_time.h"

#include "acquisition/main_window.h"
#include "desktop/desktop_platform.h"
#include "desktop/mailbox.h"
#include "pipeline/fullscreen_window.h"
#include "program.h"
#include "splash/splash_window.h"
#include "support/temporary_folder.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <memory>
#include <sys/resource.h>
#include <thread>

namespace lookfar::bench {

namespace {

/// The windows come up and paint their first picture meanwhile.
constexpr std::chrono::seconds settling{2};
constexpr std::chrono::seconds rest{10};

/// Nobody listens there.
constexpr const char* failing_url = "http://127.0.0.1:9/picture.jpg";

enum class ShownWindow { main, fullscreen };

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

/// Runs the message loop for a while, itself waking it only once, at the end.
void run_loop_for(DesktopPlatform& platform, std::chrono::seconds duration) {
    const auto is_over = std::make_shared<bool>(false);
    const std::jthread alarm([&platform, duration, is_over] {
        std::this_thread::sleep_for(duration);
        platform.mailbox().post([is_over] { *is_over = true; });
    });
    platform.wait_until([&] { return *is_over; });
}

/// Shows one of the windows of a program that refreshes only once, when it starts.
void show(Program& program, ShownWindow window) {
    program.Form1->Timer1.Enabled = false;
    program.Loading->Timer1.Enabled = false;
    program.Loading->Timer2.Enabled = false;
    if (window == ShownWindow::main) {
        program.Form1->Show();
        return;
    }
    program.Form2->Width = 1920 * twips_per_pixel;
    program.Form2->Height = 1080 * twips_per_pixel;
    program.Form2->Show();
}

Cost cost_of_rest(DesktopPlatform& platform, const std::string& url, ShownWindow window,
                  IdleTicks idle_ticks) {
    const testing::TemporaryFolder folder;
    testing::write_file("Cams.inf", "camera\r\n" + url + "\r\n");
    Program program(platform, idle_ticks);
    show(program, window);
    run_loop_for(platform, settling);
    constexpr auto seconds = static_cast<double>(rest.count());
    const double processor_before = processor_seconds();
    const long sleeps_before = sleeps();
    run_loop_for(platform, rest);
    return {.share_of_core = (processor_seconds() - processor_before) / seconds,
            .wake_ups_a_second = static_cast<double>(sleeps() - sleeps_before) / seconds,
            .has_failed = program.Form2->Timer2.Enabled};
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
