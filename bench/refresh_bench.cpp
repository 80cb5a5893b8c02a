#include "refresh_bench.h"

#include "jpeg_decode.h"
#include "measured_program.h"
#include "processor_time.h"

#include "acquisition/main_window.h"
#include "pipeline/fullscreen_window.h"

#include <benchmark/benchmark.h>

namespace lookfar::bench {

namespace {

/// One refresh up to its hand-over to both windows.
void refresh(Program& program) {
    program.Form1->Command2.Click.raise();
    program.runtime.DoEvents();
}

void measure(benchmark::State& state, Platform& platform, const std::string& url,
             const Bytes& picture, bool blurs) {
    MeasuredProgram measured(platform, url);
    Program& program = measured.program;
    program.Form1->Check2.Value = blurs ? 1 : 0;
    const double decode =
        least_processor_seconds([&] { benchmark::DoNotOptimize(decode_jpeg(picture).data()); });
    double least = 0;
    for (auto unused : state) {
        (void)unused;
        least = least_processor_seconds([&] { refresh(program); });
    }
    if (program.Form1->Label2.Visible || !program.Form1->ImagNT1.Picture.get())
        state.SkipWithError("The refresh has failed.");
    state.counters["decode_ms"] = decode * 1000;
    state.counters["refresh_ms"] = least * 1000;
    state.counters["refresh_in_decodes"] = least / decode;
}

} // namespace

void register_refreshes(Platform& platform, const std::string& url, const Bytes& picture) {
    for (const bool blurs : {false, true})
        benchmark::RegisterBenchmark(blurs ? "refresh_1920x1080_with_blur" : "refresh_1920x1080",
                                     [&platform, url, &picture, blurs](benchmark::State& state) {
                                         measure(state, platform, url, picture, blurs);
                                     })
            ->Iterations(1);
}

} // namespace lookfar::bench
