#pragma once

#include <ctime>
#include <string>
#include <sys/types.h>
#include <vector>

namespace lookfar::bench {

/// What the system tells of another process. Throws std::runtime_error once it has ended.
class WatchedProcess {
  public:
    explicit WatchedProcess(pid_t number);

    pid_t number() const { return number_; }
    /// Processor time of all its threads so far, the ended ones too.
    double processor_milliseconds() const;
    /// Fresh pages that it was given so far, without those that came from the disk.
    long page_faults() const;
    /// Those that its children were given which have ended and are waited for.
    long page_faults_of_ended_children() const;
    /// Its memory, with its share of what it has in common with other processes (PSS). Throws where
    /// the process may not be looked into.
    double megabytes() const;
    /// How often its threads have left a processor, without the ended ones: at rest they leave it
    /// each time that they were woken.
    long wake_ups() const;

  private:
    pid_t number_;
    std::string folder_;
    clockid_t clock_{};
};

/// The children of a process, their children and so on, as far as they have not ended.
std::vector<WatchedProcess> descendants_of(pid_t ancestor);

} // namespace lookfar::bench
