#include "median.h"
#include "resources/resources.h"
#include "watched_process.h"
#include "x_server.h"

#include <QImage>

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <exception>
#include <iomanip>
#include <iostream>
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

/// What stands on the screen.
class Screen {
  public:
    Screen() : connection_(connect_to_x_server()) {
        const auto file = resources::splash();
        const QImage picture = QImage::fromData(file.data(), static_cast<int>(file.size()))
                                   .convertToFormat(QImage::Format_RGB32);
        splash_ = picture.copy(corner(picture.width()), corner(picture.height()), side, side);
    }

    /// Whether the middle of the splash picture stands in the middle of the screen.
    bool shows_splash() const {
        const xcb_screen_t& screen = screen_of(*connection_);
        const std::vector<std::uint8_t> pixels =
            square_at(corner(screen.width_in_pixels), corner(screen.height_in_pixels));
        return QImage(pixels.data(), side, side, QImage::Format_RGB32) == splash_;
    }

    /// Whether the camera's picture stands in the main window, in the top left corner of the
    /// screen. It has colours; all else that comes to stand there is black, white or grey.
    bool shows_camera() const {
        constexpr int x = 160;
        constexpr int y = 120;
        constexpr int least_contrast = 20;
        std::array<int, 4> sums{};
        std::size_t byte = 0;
        for (const std::uint8_t value : square_at(x, y))
            sums.at(byte++ % sums.size()) += value;
        const auto [least, most] = std::ranges::minmax(std::span(sums).first<3>());
        return most - least > least_contrast * side * side;
    }

  private:
    static constexpr int side = 16;

    static int corner(int length) { return (length - side) / 2; }

    std::vector<std::uint8_t> square_at(int x, int y) const {
        return pixels_of_square(*connection_, screen_of(*connection_).root, x, y, side);
    }

    XConnection connection_;
    QImage splash_;
};

/// Looks at the screen until the condition holds.
template <class Condition>
void wait_until(const Condition& condition, const char* failure) {
    const auto end = Clock::now() + longest_wait;
    while (!condition()) {
        if (Clock::now() > end)
            throw std::runtime_error(failure);
        std::this_thread::sleep_for(between_looks);
    }
}

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

/// What the starts of a program take until something stands on the screen.
struct Costs {
    std::vector<double> processor;
    std::vector<double> clock;
};

struct Starts {
    std::string program;
    bool shows_camera;
    Costs until_splash;
    Costs until_camera;
};

/// A process that was started, and its descendants.
class MeasuredStart {
  public:
    explicit MeasuredStart(const std::string& program)
        : begin_(Clock::now()), process_(program), watched_(process_.number()) {}

    void add_to(Costs& costs) const {
        double processor = watched_.processor_milliseconds();
        costs.clock.push_back(Milliseconds(Clock::now() - begin_).count());
        for (const WatchedProcess& descendant : descendants_of(process_.number()))
            processor += descendant.processor_milliseconds();
        costs.processor.push_back(processor);
    }

  private:
    Clock::time_point begin_;
    StartedProcess process_;
    WatchedProcess watched_;
};

void measure_start(Starts& starts, const Screen& screen) {
    {
        const MeasuredStart start(starts.program);
        wait_until([&] { return screen.shows_splash(); }, "The splash picture does not come.");
        start.add_to(starts.until_splash);
        if (starts.shows_camera) {
            wait_until([&] { return screen.shows_camera(); },
                       "The camera's picture does not come.");
            start.add_to(starts.until_camera);
        }
    }
    wait_until([&] { return !screen.shows_splash() && !screen.shows_camera(); },
               "The last window does not go.");
}

void print_figures(const std::vector<double>& figures, const std::vector<double>& measure) {
    std::cout << std::setw(9) << std::ranges::min(figures) << std::setw(9) << median_of(figures)
              << std::setw(7) << median_of(figures) / median_of(measure);
}

void print_median(const std::vector<double>& figures) {
    std::cout << std::setw(9);
    if (figures.empty())
        std::cout << '-';
    else
        std::cout << median_of(figures);
}

void print(const Starts& starts, const Starts& measure) {
    print_figures(starts.until_splash.processor, measure.until_splash.processor);
    print_figures(starts.until_splash.clock, measure.until_splash.clock);
    print_median(starts.until_camera.processor);
    print_median(starts.until_camera.clock);
    std::cout << "  " << starts.program << '\n';
}

void watch(int count, std::span<char*> programs) {
    const Screen screen;
    std::vector<Starts> all;
    for (const char* program : programs) {
        const bool is_bare = all.empty();
        const Starts none{
            .program = program, .shows_camera = !is_bare, .until_splash = {}, .until_camera = {}};
        // The first start reads from the disk what the others find in memory.
        Starts first = none;
        measure_start(first, screen);
        all.push_back(none);
    }
    for (int round = 0; round < count; ++round)
        for (Starts& starts : all)
            measure_start(starts, screen);
    std::cout << std::fixed << std::setprecision(2);
    for (const Starts& starts : all)
        print(starts, all.front());
}

} // namespace

} // namespace lookfar::bench

/// lookfar_start_watch COUNT BARE PROGRAM... starts the programs in turn, each so many times in the
/// current folder, until the splash picture stands in the middle of the screen; all but BARE until
/// the picture of the first camera on the list there stands in the main window, too. It prints a
/// line for each program, in milliseconds: the least and the median processor time until the splash
/// picture, of the process and its descendants, and the same of the time on the clock, each
/// followed by the median in those of BARE; then the medians of both times until the camera's
/// picture.
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
