#include "list_bench.h"

#include "acquisition/main_window.h"
#include "catalogue/windows/camera_editor.h"
#include "catalogue/windows/camera_list_window.h"
#include "program.h"
#include "splash/splash_window.h"
#include "support/temporary_folder.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <functional>
#include <string>

namespace lookfar::bench {

namespace {

std::string longest_list() {
    std::string list;
    for (int camera = 0; camera < 32767; ++camera)
        list += "Camera " + std::to_string(camera * 7919 % 32767) +
                "\r\nhttp://127.0.0.1:9/picture.jpg\r\n";
    return list;
}

double milliseconds_of(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
        .count();
}

void measure(benchmark::State& state, Platform& platform) {
    for (auto unused : state) {
        (void)unused;
        const testing::TemporaryFolder folder;
        testing::write_file("Cams.inf", longest_list());
        Program program(platform);
        const auto act = [&](const std::function<void()>& action) {
            return milliseconds_of([&] {
                action();
                program.runtime.DoEvents();
            });
        };
        state.counters["start_up_ms"] = act([&] { program.Form1->Show(); });
        program.Loading->Timer1.Enabled = false;
        program.Form1->Command1.Click.raise();
        program.runtime.DoEvents();
        state.counters["save_ms"] = act([&] {
            program.Form3->Command3.Click.raise();
            program.Form4->Text1.Text = "A new title";
            program.Form4->Command1.Click.raise();
        });
        state.counters["removal_ms"] = act([&] { program.Form3->Command2.Click.raise(); });
        if (program.Form3->List1.ListCount() != 32766)
            state.SkipWithError("The removal has failed.");
    }
}

} // namespace

void register_lists(Platform& platform) {
    benchmark::RegisterBenchmark("list_of_32767", [&platform](benchmark::State& state) {
        measure(state, platform);
    })->Iterations(1);
}

} // namespace lookfar::bench
