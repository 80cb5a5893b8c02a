#include "watched_process.h"

#include <charconv>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <optional>
#include <ranges>
#include <sstream>
#include <stdexcept>
#include <string_view>

namespace lookfar::bench {

namespace {

std::string folder_of(pid_t process) {
    return "/proc/" + std::to_string(process) + "/";
}

/// Empty where the file can't be read.
std::string text_of(const std::filesystem::path& path) {
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// The number that follows the label.
std::optional<long> figure_in(const std::string& text, std::string_view label) {
    const auto place = text.find(label);
    if (place == std::string::npos)
        return {};
    return std::stol(text.substr(place + label.size()));
}

/// What stands of a process in its line of figures.
struct Line {
    char state = 0;
    pid_t parent = 0;
    long page_faults = 0;
    long page_faults_of_ended_children = 0;
};

/// Nothing once the process is gone.
std::optional<Line> line_of(pid_t process) {
    const std::string text = text_of(folder_of(process) + "stat");
    std::istringstream after_name(text.substr(text.rfind(')') + 1));
    Line line;
    std::string unread;
    after_name >> line.state >> line.parent;
    for (int field = 5; field < 10; ++field)
        after_name >> unread;
    after_name >> line.page_faults >> line.page_faults_of_ended_children;
    if (!after_name)
        return {};
    return line;
}

Line line_of_living(pid_t process) {
    const auto line = line_of(process);
    if (!line)
        throw std::runtime_error("The process has ended.");
    return *line;
}

/// The processes of the system that have not ended, by their parents.
std::multimap<pid_t, pid_t> processes_by_parent() {
    std::multimap<pid_t, pid_t> processes;
    for (const auto& entry : std::filesystem::directory_iterator("/proc")) {
        const std::string name = entry.path().filename();
        pid_t process = 0;
        if (std::from_chars(name.data(), name.data() + name.size(), process).ec != std::errc{})
            continue;
        const auto line = line_of(process);
        constexpr char ended = 'Z';
        if (line && line->state != ended)
            processes.emplace(line->parent, process);
    }
    return processes;
}

} // namespace

WatchedProcess::WatchedProcess(pid_t number) : number_(number), folder_(folder_of(number)) {
    if (clock_getcpuclockid(number, &clock_) != 0)
        throw std::runtime_error("There is no process " + std::to_string(number));
}

double WatchedProcess::processor_milliseconds() const {
    std::timespec time{};
    if (clock_gettime(clock_, &time) != 0)
        throw std::runtime_error("The process has ended.");
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) * 1e-6;
}

long WatchedProcess::page_faults() const {
    return line_of_living(number_).page_faults;
}

long WatchedProcess::page_faults_of_ended_children() const {
    return line_of_living(number_).page_faults_of_ended_children;
}

double WatchedProcess::megabytes() const {
    const auto kilobytes = figure_in(text_of(folder_ + "smaps_rollup"), "\nPss:");
    if (!kilobytes)
        throw std::runtime_error("The memory of process " + std::to_string(number_) +
                                 " can't be read; one that is closed to others tells it to root.");
    return static_cast<double>(*kilobytes) / 1024;
}

long WatchedProcess::wake_ups() const {
    long wake_ups = 0;
    for (const auto& thread : std::filesystem::directory_iterator(folder_ + "task")) {
        const std::string status = text_of(thread.path() / "status");
        const auto own = figure_in(status, "\nvoluntary_ctxt_switches:");
        const auto forced = figure_in(status, "\nnonvoluntary_ctxt_switches:");
        if (!own || !forced)
            throw std::runtime_error("A thread of the process has ended.");
        wake_ups += *own + *forced;
    }
    return wake_ups;
}

std::vector<WatchedProcess> descendants_of(pid_t ancestor) {
    const auto processes = processes_by_parent();
    std::vector<pid_t> family{ancestor};
    std::vector<WatchedProcess> descendants;
    for (std::size_t next = 0; next < family.size(); ++next) {
        const auto [first, last] = processes.equal_range(family[next]);
        for (const auto& [parent, child] : std::ranges::subrange(first, last)) {
            family.push_back(child);
            descendants.emplace_back(child);
        }
    }
    return descendants;
}

} // namespace lookfar::bench
