#pragma once

#include <ctime>
#include <string>
#include <sys/types.h>

namespace lookfar::bench {

/// What the system tells of another process. Throws std::runtime_error once it has ended.
class WatchedProcess {
  public:
    explicit WatchedProcess(pid_t process);

    /// Processor time of all its threads so far, the ended ones too.
    double processor_milliseconds() const;
    /// Fresh pages that it was given so far, without those that came from the disk.
    long page_faults() const;
    /// Its memory, with its share of what it has in common with other processes (PSS).
    double megabytes() const;

  private:
    std::string folder_;
    clockid_t clock_{};
};

} // namespace lookfar::bench
