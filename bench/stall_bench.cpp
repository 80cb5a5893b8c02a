#include "stall_bench.h"

#include "jpeg_decode.h"
#include "measured_program.h"
#include "message_loop.h"
#include "processor_time.h"

#include "acquisition/main_window.h"
#include "desktop/desktop_platform.h"
#include "runtime/pictures/picture_decoder.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <limits>
#include <memory>
#include <thread>
#include <utility>

namespace lookfar::bench {

namespace {

using Clock = std::chrono::steady_clock;

constexpr int refreshes = 8;

/// Seconds for which the message loop serves nobody, and those of them in which this process works.
struct Stall {
    double real = 0;
    double processor = 0;
};

Stall longer(const Stall& left, const Stall& right) {
    return {std::max(left.real, right.real), std::max(left.processor, right.processor)};
}

Stall shorter(const Stall& left, const Stall& right) {
    return {std::min(left.real, right.real), std::min(left.processor, right.processor)};
}

double real_seconds() {
    return std::chrono::duration<double>(Clock::now().time_since_epoch()).count();
}

/// Asks the message loop for a sign of life all the time, from a thread of its own.
class LoopWatch {
  public:
    explicit LoopWatch(Platform& platform)
        : thread_([this, &platform](const std::stop_token& stop) {
              while (!stop.stop_requested())
                  ask(platform, stop);
          }) {}

    /// The longest wait for an answer since this was called last. For the main thread.
    Stall take_longest() { return std::exchange(state_->longest, {}); }

  private:
    struct State {
        std::atomic<bool> has_answered = false;
        Stall longest;
    };

    void ask(Platform& platform, const std::stop_token& stop) {
        state_->has_answered = false;
        platform.post([state = state_, real = real_seconds(), processor = processor_seconds()] {
            state->longest = longer(state->longest, {.real = real_seconds() - real,
                                                     .processor = processor_seconds() - processor});
            state->has_answered = true;
        });
        do
            std::this_thread::sleep_for(std::chrono::microseconds(200));
        while (!state_->has_answered && !stop.stop_requested());
    }

    std::shared_ptr<State> state_ = std::make_shared<State>();
    std::jthread thread_;
};

/// The longest stall of a refresh: the least of several refreshes, since a shared machine only ever
/// adds.
Stall longest_stall(Program& program, DesktopPlatform& platform) {
    LoopWatch watch(platform);
    Stall least{.real = std::numeric_limits<double>::max(),
                .processor = std::numeric_limits<double>::max()};
    for (int refresh = 0; refresh < refreshes; ++refresh) {
        watch.take_longest();
        program.Form1->Command2.Click.raise();
        run_loop_for(platform, std::chrono::milliseconds(300));
        least = shorter(least, watch.take_longest());
    }
    return least;
}

void measure(benchmark::State& state, DesktopPlatform& platform, const std::string& url,
             const Bytes& picture) {
    MeasuredProgram measured(platform, url);
    measured.show(ShownWindow::fullscreen);
    const double decode =
        least_processor_seconds([&] { benchmark::DoNotOptimize(decode_jpeg(picture).get()); });
    const double own_decode =
        least_processor_seconds([&] { benchmark::DoNotOptimize(decode_pixels(picture).bytes); });
    Stall stall;
    for (auto unused : state) {
        (void)unused;
        stall = longest_stall(measured.program(), platform);
    }
    if (measured.has_failed() || stall.processor < decode / 2)
        state.SkipWithError("No picture has come.");
    state.counters["decode_ms"] = decode * 1000;
    state.counters["own_decode_ms"] = own_decode * 1000;
    state.counters["longest_stall_ms"] = stall.processor * 1000;
    state.counters["longest_stall_real_ms"] = stall.real * 1000;
    state.counters["longest_stall_in_decodes"] = stall.processor / decode;
    state.counters["longest_stall_in_own_decodes"] = stall.processor / own_decode;
}

} // namespace

void register_stalls(DesktopPlatform& platform, const std::string& url, const Bytes& picture) {
    benchmark::RegisterBenchmark("longest_stall_3840x2160", [&platform, url,
                                                             &picture](benchmark::State& state) {
        measure(state, platform, url, picture);
    })->Iterations(1);
}

} // namespace lookfar::bench
