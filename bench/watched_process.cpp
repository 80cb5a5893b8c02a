#include "watched_process.h"

#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>

namespace lookfar::bench {

namespace {

std::string text_of(const std::string& path) {
    std::ifstream file(path);
    std::string text{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    if (text.empty())
        throw std::runtime_error("The system tells nothing in " + path);
    return text;
}

} // namespace

WatchedProcess::WatchedProcess(pid_t process) : folder_("/proc/" + std::to_string(process) + "/") {
    if (clock_getcpuclockid(process, &clock_) != 0)
        throw std::runtime_error("There is no process " + std::to_string(process));
}

double WatchedProcess::processor_milliseconds() const {
    std::timespec time{};
    if (clock_gettime(clock_, &time) != 0)
        throw std::runtime_error("The process has ended.");
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) * 1e-6;
}

long WatchedProcess::page_faults() const {
    const std::string line = text_of(folder_ + "stat");
    std::istringstream after_name(line.substr(line.rfind(')') + 1));
    std::string unread;
    for (int field = 3; field < 10; ++field)
        after_name >> unread;
    long faults = 0;
    after_name >> faults;
    return faults;
}

double WatchedProcess::megabytes() const {
    const std::string text = text_of(folder_ + "smaps_rollup");
    const auto line = text.find("\nPss:");
    if (line == std::string::npos)
        throw std::runtime_error("The system does not tell the process's memory.");
    return std::stod(text.substr(line + 5)) / 1024;
}

} // namespace lookfar::bench
