#include "jpeg_decode.h"
#include "median.h"
#include "watched_process.h"
#include "watched_window.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <iomanip>
#include <iostream>
#include <optional>
#include <stdexcept>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace lookfar::bench {

namespace {

using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;
using namespace std::chrono_literals;

constexpr auto longest_between_refreshes = 15s;
constexpr auto longest_refresh = 700ms;

/// Notices the refreshes of a window. Each begins with a request to the camera; where the pictures
/// come from no camera, with a new picture on the screen.
class Refreshes {
  public:
    Refreshes(const WatchedWindow& window, std::optional<std::filesystem::path> requests)
        : window_(window),
          requests_(std::move(requests)),
          requested_(requests_ ? file_size(*requests_) : 0),
          seen_(window.pixels()) {}

    /// Whether one has begun since this was called last. Throws where none comes any more.
    bool has_begun() {
        const bool has = requests_ ? has_changed(requested_, file_size(*requests_))
                                   : has_changed(seen_, window_.pixels());
        const auto now = Clock::now();
        if (has)
            last_ = now;
        else if (now - last_ > longest_between_refreshes)
            throw std::runtime_error("No refresh comes.");
        return has;
    }

    /// Returns in the rest after the next one. Throws where it brings no new picture.
    void wait_for_rest() {
        while (!has_begun())
            std::this_thread::sleep_for(5ms);
        std::this_thread::sleep_for(longest_refresh);
        if (!has_changed(seen_at_rest_, window_.pixels()))
            throw std::runtime_error("A refresh has brought no new picture onto the screen.");
    }

  private:
    using Pixels = std::vector<std::uint8_t>;

    template <class Value>
    static bool has_changed(Value& known, const Value& now) {
        return std::exchange(known, now) != now;
    }

    const WatchedWindow& window_;
    std::optional<std::filesystem::path> requests_;
    std::uintmax_t requested_;
    Pixels seen_;
    Pixels seen_at_rest_;
    Clock::time_point last_ = Clock::now();
};

/// What each refresh takes of a process.
struct Costs {
    std::vector<double> milliseconds;
    std::vector<double> page_faults;
};

Costs costs_of(const WatchedProcess& process, Refreshes refreshes, int count) {
    Costs costs;
    refreshes.wait_for_rest();
    for (int refresh = 0; refresh < count; ++refresh) {
        const double milliseconds = process.processor_milliseconds();
        const long faults = process.page_faults();
        refreshes.wait_for_rest();
        costs.milliseconds.push_back(process.processor_milliseconds() - milliseconds);
        costs.page_faults.push_back(static_cast<double>(process.page_faults() - faults));
    }
    return costs;
}

/// The longest wait for a sign of life in each refresh, in milliseconds.
std::vector<double> longest_waits(WatchedWindow& window, Refreshes refreshes, int count) {
    std::vector<double> longest;
    refreshes.wait_for_rest();
    while (std::ssize(longest) < count) {
        double wait = 0;
        do {
            std::this_thread::sleep_for(5ms);
            const auto start = Clock::now();
            window.ping();
            wait = std::max(wait, Milliseconds(Clock::now() - start).count());
        } while (!refreshes.has_begun());
        longest.push_back(wait);
    }
    return longest;
}

void print_ratio(double figure, const QString& measure) {
    if (measure.isEmpty())
        std::cout << "- ";
    else
        std::cout << figure / measure.toDouble() << ' ';
}

void watch(const QCommandLineParser& arguments) {
    const int count = arguments.value("refreshes").toInt();
    std::vector<std::string> pictures;
    for (const QString& picture : arguments.positionalArguments())
        pictures.push_back(picture.toStdString());
    std::optional<std::filesystem::path> requests;
    if (arguments.isSet("requests"))
        requests = arguments.value("requests").toStdString();
    const WatchedProcess process(arguments.value("process").toInt());
    WatchedWindow window(arguments.value("window").toUInt());

    const double decode = decode_milliseconds(pictures);
    std::vector<double> waits;
    if (requests)
        waits = longest_waits(window, Refreshes(window, requests), count);
    // The costs come last: an error that stays on the screen is found out by them.
    const Costs costs = costs_of(process, Refreshes(window, requests), count);
    const double refresh = median_of(costs.milliseconds);
    if (refresh < decode / 2)
        throw std::runtime_error("The pictures are not decoded.");

    std::cout << std::fixed << std::setprecision(2) << refresh << ' ' << refresh / decode << ' ';
    print_ratio(refresh, arguments.value("feh"));
    std::cout << std::setprecision(0) << median_of(costs.page_faults) << ' ' << std::setprecision(1)
              << process.megabytes() << ' ';
    if (waits.empty())
        std::cout << "-\n";
    else
        std::cout << median_of(waits) << '\n';
}

} // namespace

} // namespace lookfar::bench

/// Watches a process refresh a window, and prints what a refresh takes in one line: milliseconds of
/// processor time, the same in decodes and in feh's refreshes, page faults, the process's memory
/// (PSS) in megabytes, and the longest wait for an answer in milliseconds, with a dash for what was
/// not measured. All but the memory are medians. Fails where no refresh comes or no new picture
/// with it.
int main(int count, char** texts) {
    const QCoreApplication application(count, texts);
    QCommandLineParser arguments;
    arguments.addPositionalArgument("pictures", "The JPEG files that are shown in turn.");
    arguments.addOptions({{"process", "The process to watch.", "number"},
                          {"window", "Its window.", "number"},
                          {"refreshes", "How many to measure.", "number"},
                          {"requests", "A file that grows at each refresh.", "file"},
                          {"feh", "What feh takes for a refresh.", "milliseconds"}});
    arguments.process(application);
    try {
        lookfar::bench::watch(arguments);
    } catch (const std::exception& failure) {
        std::cerr << failure.what() << '\n';
        return EXIT_FAILURE;
    }
}
