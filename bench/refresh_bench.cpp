#include "refresh_bench.h"

#include "jpeg_decode.h"
#include "measured_program.h"
#include "processor_time.h"

#include <benchmark/benchmark.h>

namespace lookfar::bench {

namespace {

void measure(benchmark::State& state, DesktopPlatform& platform, const std::string& url,
             const Bytes& picture, ShownWindow window) {
    MeasuredProgram measured(platform, url);
    measured.show(window);
    const double decode =
        least_processor_seconds([&] { benchmark::DoNotOptimize(decode_jpeg(picture).get()); });
    bool all_are_painted = true;
    double refresh = 0;
    for (auto unused : state) {
        (void)unused;
        refresh = least_processor_seconds(
            [&] { all_are_painted = measured.refresh_and_paint() && all_are_painted; });
    }
    if (!all_are_painted || measured.has_failed())
        state.SkipWithError("A refresh has not reached the screen.");
    state.counters["decode_ms"] = decode * 1000;
    state.counters["refresh_ms"] = refresh * 1000;
    state.counters["refresh_in_decodes"] = refresh / decode;
}

} // namespace

void register_refreshes(DesktopPlatform& platform, const std::string& size, const std::string& url,
                        const Bytes& picture) {
    const auto add = [&](const std::string& place, ShownWindow window) {
        const std::string name = "refresh_" + size + "_in_" + place;
        benchmark::RegisterBenchmark(name.c_str(), [&platform, url, &picture,
                                                    window](benchmark::State& state) {
            measure(state, platform, url, picture, window);
        })->Iterations(1);
    };
    add("main_window", ShownWindow::main);
    add("fullscreen_window", ShownWindow::fullscreen);
}

} // namespace lookfar::bench
