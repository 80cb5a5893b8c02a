#include "watched_family.h"

#include <algorithm>
#include <stdexcept>

namespace lookfar::bench {

namespace {

template <class Figure>
Figure sum_of(const std::vector<WatchedProcess>& processes,
              Figure (WatchedProcess::*figure)() const) {
    Figure sum{};
    for (const WatchedProcess& process : processes)
        sum += (process.*figure)();
    return sum;
}

} // namespace

WatchedFamily::WatchedFamily(pid_t process)
    : process_(process),
      descendants_(descendants_of(process)),
      page_faults_of_ended_before_(page_faults_of_ended_children()) {}

double WatchedFamily::processor_milliseconds() const {
    return process_.processor_milliseconds() +
           sum_of(descendants_, &WatchedProcess::processor_milliseconds);
}

long WatchedFamily::page_faults() const {
    return process_.page_faults() + sum_of(descendants_, &WatchedProcess::page_faults);
}

double WatchedFamily::megabytes() const {
    return process_.megabytes() + sum_of(descendants_, &WatchedProcess::megabytes);
}

bool WatchedFamily::has_descendants() const {
    return !descendants_.empty();
}

long WatchedFamily::wake_ups_of_descendants() const {
    return sum_of(descendants_, &WatchedProcess::wake_ups);
}

void WatchedFamily::check_is_whole() const {
    const bool are_the_same =
        std::ranges::equal(descendants_, descendants_of(process_.number()), {},
                           &WatchedProcess::number, &WatchedProcess::number);
    // One that has come and ended meanwhile has left only this.
    if (!are_the_same || page_faults_of_ended_children() != page_faults_of_ended_before_)
        throw std::runtime_error("A child process has come or ended while it was measured.");
}

long WatchedFamily::page_faults_of_ended_children() const {
    return process_.page_faults_of_ended_children() +
           sum_of(descendants_, &WatchedProcess::page_faults_of_ended_children);
}

} // namespace lookfar::bench
