#include "list_bench.h"

#include "processor_time.h"

#include "acquisition/main_window.h"
#include "catalogue/windows/camera_editor.h"
#include "catalogue/windows/camera_list_window.h"
#include "program.h"
#include "splash/splash_window.h"
#include "support/temporary_folder.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <functional>
#include <limits>
#include <stdexcept>
#include <string>
#include <unistd.h>
#include <vector>

namespace lookfar::bench {

namespace {

std::string longest_list() {
    std::string list;
    for (int camera = 0; camera < 32767; ++camera)
        list += "Camera " + std::to_string(camera * 7919 % 32767) +
                "\r\nhttp://127.0.0.1:9/picture.jpg\r\n";
    return list;
}

constexpr int rounds = 5;

double milliseconds_of(const std::function<void()>& work) {
    const double start = processor_seconds();
    work();
    return (processor_seconds() - start) * 1000;
}

void read_and_sort_titles() {
    std::ifstream file("Cams.inf", std::ios::binary);
    std::vector<std::string> titles;
    std::string url;
    for (std::string title; std::getline(file, title); std::getline(file, url))
        titles.push_back(title);
    std::ranges::sort(titles);
    benchmark::DoNotOptimize(titles.data());
}

void copy_safely() {
    const std::string content = testing::content_of("Cams.inf");
    const int file = ::open("copy", O_WRONLY | O_CREAT | O_TRUNC, 0666);
    const auto size = static_cast<ssize_t>(content.size());
    if (file == -1 || ::write(file, content.data(), content.size()) != size || ::fsync(file) != 0)
        throw std::runtime_error("The list can't be copied.");
    ::close(file);
    std::filesystem::rename("copy", "Cams.inf");
}

/// In milliseconds.
struct Times {
    double reading = std::numeric_limits<double>::max();
    double copying = reading;
    double start_up = reading;
    double save = reading;
    double removal = reading;

    void take_less(const Times& others) {
        for (double Times::* const each :
             {&Times::reading, &Times::copying, &Times::start_up, &Times::save, &Times::removal})
            this->*each = std::min(this->*each, others.*each);
    }
};

Times one_round(benchmark::State& state, Platform& platform) {
    const testing::TemporaryFolder folder;
    testing::write_file("Cams.inf", longest_list());
    Times times;
    times.reading = milliseconds_of(read_and_sort_titles);
    times.copying = milliseconds_of(copy_safely);
    Program program(platform);
    const auto act = [&](const std::function<void()>& action) {
        return milliseconds_of([&] {
            action();
            program.runtime.DoEvents();
        });
    };
    times.start_up = act([&] { program.Form1->Show(); });
    program.Loading->Timer1.Enabled = false;
    program.Form1->Command1.Click.raise();
    program.runtime.DoEvents();
    times.save = act([&] {
        program.Form3->Command3.Click.raise();
        program.Form4->Text1.Text = "A new title";
        program.Form4->Command1.Click.raise();
    });
    times.removal = act([&] { program.Form3->Command2.Click.raise(); });
    if (program.Form3->List1.ListCount() != 32766)
        state.SkipWithError("The removal has failed.");
    return times;
}

void measure(benchmark::State& state, Platform& platform) {
    Times least;
    for (auto unused : state) {
        (void)unused;
        for (int round = 0; round < rounds; ++round)
            least.take_less(one_round(state, platform));
    }
    const double reading_and_copying = least.reading + least.copying;
    state.counters["reading_ms"] = least.reading;
    state.counters["copying_ms"] = least.copying;
    state.counters["start_up_ms"] = least.start_up;
    state.counters["save_ms"] = least.save;
    state.counters["removal_ms"] = least.removal;
    state.counters["start_up_in_readings"] = least.start_up / least.reading;
    state.counters["save_in_readings_and_copies"] = least.save / reading_and_copying;
    state.counters["removal_in_readings_and_copies"] = least.removal / reading_and_copying;
}

} // namespace

void register_lists(Platform& platform) {
    benchmark::RegisterBenchmark("list_of_32767", [&platform](benchmark::State& state) {
        measure(state, platform);
    })->Iterations(1);
}

} // namespace lookfar::bench
