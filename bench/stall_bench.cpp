#include "stall_bench.h"

#include "jpeg_decode.h"
#include "measured_program.h"
#include "message_loop.h"
#include "processor_time.h"

#include "acquisition/main_window.h"
#include "runtime/desktop/desktop_platform.h"
#include "runtime/picture_decoder.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <memory>
#include <thread>

namespace lookfar::bench {

namespace {

using Clock = std::chrono::steady_clock;

constexpr int refreshes = 8;

/// Asks the message loop for a sign of life all the time, from a thread of its own.
class LoopWatch {
  public:
    explicit LoopWatch(Platform& platform)
        : thread_([this, &platform](const std::stop_token& stop) {
              while (!stop.stop_requested())
                  ask(platform, stop);
          }) {}

    /// The longest wait for an answer so far, in milliseconds. For the main thread.
    double longest_wait() const { return state_->longest_wait; }

  private:
    struct State {
        std::atomic<bool> has_answered = false;
        double longest_wait = 0;
    };

    void ask(Platform& platform, const std::stop_token& stop) {
        state_->has_answered = false;
        platform.post([state = state_, asked = Clock::now()] {
            const std::chrono::duration<double, std::milli> waited = Clock::now() - asked;
            state->longest_wait = std::max(state->longest_wait, waited.count());
            state->has_answered = true;
        });
        do
            std::this_thread::sleep_for(std::chrono::microseconds(200));
        while (!state_->has_answered && !stop.stop_requested());
    }

    std::shared_ptr<State> state_ = std::make_shared<State>();
    std::jthread thread_;
};

/// In milliseconds; the longest of as many as there are refreshes, each into fresh memory as in a
/// refresh.
double longest_own_decode(const Bytes& picture) {
    double longest = 0;
    Pixels last;
    for (int count = 0; count < refreshes; ++count) {
        const auto start = Clock::now();
        last = decode_pixels(picture);
        const std::chrono::duration<double, std::milli> taken = Clock::now() - start;
        longest = std::max(longest, taken.count());
    }
    return longest;
}

void measure(benchmark::State& state, DesktopPlatform& platform, const std::string& url,
             const Bytes& picture) {
    MeasuredProgram measured(platform, url);
    Program& program = measured.program;
    measured.show(ShownWindow::fullscreen);
    const double decode =
        least_processor_seconds([&] { benchmark::DoNotOptimize(decode_jpeg(picture).get()); });
    const double own_decode = longest_own_decode(picture);
    for (auto unused : state) {
        (void)unused;
        const LoopWatch watch(platform);
        for (int refresh = 0; refresh < refreshes; ++refresh) {
            program.Form1->Command2.Click.raise();
            run_loop_for(platform, std::chrono::milliseconds(200));
        }
        state.counters["longest_stall_ms"] = watch.longest_wait();
        state.counters["longest_stall_in_decodes"] = watch.longest_wait() / (decode * 1000);
        state.counters["longest_stall_in_own_decodes"] = watch.longest_wait() / own_decode;
    }
    state.counters["decode_ms"] = decode * 1000;
    state.counters["own_decode_ms"] = own_decode;
}

} // namespace

void register_stalls(DesktopPlatform& platform, const std::string& url, const Bytes& picture) {
    benchmark::RegisterBenchmark("longest_stall_3840x2160", [&platform, url,
                                                             &picture](benchmark::State& state) {
        measure(state, platform, url, picture);
    })->Iterations(1);
}

} // namespace lookfar::bench
