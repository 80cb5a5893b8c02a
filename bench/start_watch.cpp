#include "median.h"
#include "resources/resources.h"
#include "watched_process.h"
#include "x_server.h"

#include <QImage>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <exception>
#include <iomanip>
#include <iostream>
#include <optional>
#include <span>
#include <spawn.h>
#include <stdexcept>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace lookfar::bench {

namespace {

using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;
using namespace std::chrono_literals;

constexpr auto longest_wait = 10s;
constexpr auto between_looks = 500us;

/// The middle of the screen, where the middle of the splash picture comes to lie.
class MiddleOfScreen {
  public:
    MiddleOfScreen() : connection_(connect_to_x_server()) {
        const auto file = resources::splash();
        const QImage picture = QImage::fromData(file.data(), static_cast<int>(file.size()))
                                   .convertToFormat(QImage::Format_RGB32);
        wanted_ = picture.copy(corner(picture.width()), corner(picture.height()), side, side);
    }

    /// Returns once the picture is there, or no longer there.
    void wait_until_picture_is_there(bool wanted) const {
        const auto end = Clock::now() + longest_wait;
        while (shows_picture() != wanted) {
            if (Clock::now() > end)
                throw std::runtime_error(wanted ? "The splash picture does not come."
                                                : "The splash picture does not go.");
            std::this_thread::sleep_for(between_looks);
        }
    }

  private:
    static constexpr int side = 16;

    static int corner(int length) { return (length - side) / 2; }

    bool shows_picture() const {
        const xcb_screen_t& screen = screen_of(*connection_);
        const std::vector<std::uint8_t> pixels =
            pixels_of_square(*connection_, screen.root, corner(screen.width_in_pixels),
                             corner(screen.height_in_pixels), side);
        return QImage(pixels.data(), side, side, QImage::Format_RGB32) == wanted_;
    }

    XConnection connection_;
    QImage wanted_;
};

/// A process that ends with the object.
class StartedProcess {
  public:
    explicit StartedProcess(std::string program) {
        std::vector<char*> words{program.data(), nullptr};
        if (::posix_spawn(&number_, program.c_str(), nullptr, nullptr, words.data(), environ) != 0)
            throw std::runtime_error("It can't be started: " + program);
    }
    StartedProcess(const StartedProcess&) = delete;
    StartedProcess& operator=(const StartedProcess&) = delete;
    ~StartedProcess() {
        ::kill(number_, SIGKILL);
        ::waitpid(number_, nullptr, 0);
    }

    pid_t number() const { return number_; }

  private:
    pid_t number_ = 0;
};

/// What the starts of a program take until its picture is on the screen.
struct Starts {
    std::string program;
    std::vector<double> processor;
    std::vector<double> clock;
};

void start(Starts& starts, const MiddleOfScreen& middle) {
    {
        const auto begin = Clock::now();
        const StartedProcess process(starts.program);
        const WatchedProcess watched(process.number());
        middle.wait_until_picture_is_there(true);
        starts.processor.push_back(watched.processor_milliseconds());
        starts.clock.push_back(Milliseconds(Clock::now() - begin).count());
    }
    middle.wait_until_picture_is_there(false);
}

void print_figures(const std::vector<double>& figures, const std::vector<double>& measure) {
    std::cout << std::setw(9) << std::ranges::min(figures) << std::setw(9) << median_of(figures)
              << std::setw(7) << median_of(figures) / median_of(measure);
}

void watch(int count, std::span<char*> programs) {
    const MiddleOfScreen middle;
    std::vector<Starts> all;
    for (const char* program : programs) {
        // The first one reads from the disk what the others find in memory.
        Starts first{.program = program, .processor = {}, .clock = {}};
        start(first, middle);
        all.push_back({.program = program, .processor = {}, .clock = {}});
    }
    for (int round = 0; round < count; ++round)
        for (Starts& starts : all)
            start(starts, middle);
    std::cout << std::fixed << std::setprecision(2);
    for (const Starts& starts : all) {
        print_figures(starts.processor, all.front().processor);
        print_figures(starts.clock, all.front().clock);
        std::cout << "  " << starts.program << '\n';
    }
}

} // namespace

} // namespace lookfar::bench

/// lookfar_start_watch COUNT PROGRAM... starts the programs in turn, each so many times, and ends
/// each start when the middle of the splash picture stands in the middle of the screen. It prints a
/// line for each program, in milliseconds: the least and the median processor time of the process,
/// with all its threads, and the same of the time on the clock, each followed by the median in
/// those of the first program.
int main(int count, char** arguments) {
    if (count < 3)
        return EXIT_FAILURE;
    try {
        const std::span programs(arguments + 2, arguments + count);
        lookfar::bench::watch(std::stoi(arguments[1]), programs);
    } catch (const std::exception& failure) {
        std::cerr << failure.what() << '\n';
        return EXIT_FAILURE;
    }
}
