#include "jpeg_decode.h"
#include "median.h"
#include "watched_family.h"
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
using Seconds = std::chrono::duration<double>;
using namespace std::chrono_literals;

constexpr auto longest_between_refreshes = 15s;
constexpr auto longest_refresh = 700ms;
/// Ends before the next refresh, which begins a second after the last one.
constexpr auto watched_rest = 150ms;

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

/// What the refreshes take of a process and its descendants.
struct Costs {
    std::vector<double> milliseconds;
    std::vector<double> page_faults;
    double megabytes = 0;
    /// Of the descendants, in a second at rest; nothing where there are none.
    std::optional<double> wake_ups;
};

/// How often the descendants are woken in a while at rest.
long wake_ups_at_rest(const WatchedFamily& family, Refreshes& refreshes) {
    const long before = family.wake_ups_of_descendants();
    std::this_thread::sleep_for(watched_rest);
    const long wake_ups = family.wake_ups_of_descendants() - before;
    if (refreshes.has_begun())
        throw std::runtime_error("There is not enough rest between two refreshes.");
    return wake_ups;
}

Costs costs_of(pid_t process, Refreshes refreshes, int count) {
    Costs costs;
    refreshes.wait_for_rest();
    const WatchedFamily family(process);
    long wake_ups = 0;
    for (int refresh = 0; refresh < count; ++refresh) {
        const double milliseconds = family.processor_milliseconds();
        const long faults = family.page_faults();
        wake_ups += wake_ups_at_rest(family, refreshes);
        refreshes.wait_for_rest();
        family.check_is_whole();
        costs.milliseconds.push_back(family.processor_milliseconds() - milliseconds);
        costs.page_faults.push_back(static_cast<double>(family.page_faults() - faults));
    }
    costs.megabytes = family.megabytes();
    if (family.has_descendants())
        costs.wake_ups = static_cast<double>(wake_ups) / (Seconds(watched_rest) * count).count();
    return costs;
}

/// The longest wait for a sign of life in each refresh, in milliseconds.
std::vector<double> longest_waits(WatchedWindow& window, Refreshes refreshes, int count) {
    std::vector<double> longest;
    refreshes.wait_for_rest();
    while (std::ssize(longest) < count) {
        double wait = 0;
        do {
            const auto start = Clock::now();
            window.ping();
            wait = std::max(wait, Milliseconds(Clock::now() - start).count());
        } while (!refreshes.has_begun());
        longest.push_back(wait);
    }
    return longest;
}

void print(std::optional<double> figure, int decimals) {
    if (figure)
        std::cout << std::fixed << std::setprecision(decimals) << *figure << ' ';
    else
        std::cout << "- ";
}

void watch(const QCommandLineParser& arguments) {
    const int count = arguments.value("refreshes").toInt();
    std::vector<std::string> pictures;
    for (const QString& picture : arguments.positionalArguments())
        pictures.push_back(picture.toStdString());
    std::optional<std::filesystem::path> requests;
    if (arguments.isSet("requests"))
        requests = arguments.value("requests").toStdString();
    std::optional<double> feh;
    if (arguments.isSet("feh"))
        feh = arguments.value("feh").toDouble();
    WatchedWindow window(arguments.value("window").toUInt());

    const double decode = decode_milliseconds(pictures);
    std::optional<double> wait;
    if (requests)
        wait = median_of(longest_waits(window, Refreshes(window, requests), count));
    // The costs come last: an error that stays on the screen is found out by them.
    const pid_t process = arguments.value("process").toInt();
    const Costs costs = costs_of(process, Refreshes(window, requests), count);
    const double refresh = median_of(costs.milliseconds);
    if (refresh < decode / 2)
        throw std::runtime_error("The pictures are not decoded.");

    print(refresh, 2);
    print(refresh / decode, 2);
    print(feh ? std::optional(refresh / *feh) : std::nullopt, 2);
    print(median_of(costs.page_faults), 0);
    print(costs.megabytes, 1);
    print(wait, 1);
    print(costs.wake_ups, 2);
    std::cout << '\n';
}

} // namespace

} // namespace lookfar::bench

/// Watches a process refresh a window, and prints what a refresh takes of it and its descendants in
/// one line: milliseconds of processor time, the same in decodes and in feh's refreshes, page
/// faults, the processes' memory (PSS) in megabytes, the longest wait for an answer in
/// milliseconds, and how often a second the descendants are woken between two refreshes, with a
/// dash for what was not measured. All but the memory and the last one are medians. Fails where no
/// refresh comes or no new picture with it, and where a descendant comes or ends.
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
