#pragma once

#include "watched_process.h"

#include <vector>

namespace lookfar::bench {

/// A process and its descendants: those that live when this is made. Throws std::runtime_error once
/// one of them has ended.
class WatchedFamily {
  public:
    explicit WatchedFamily(pid_t process);

    /// Of all the processes together; see WatchedProcess.
    double processor_milliseconds() const;
    long page_faults() const;
    double megabytes() const;

    bool has_descendants() const;
    long wake_ups_of_descendants() const;

    /// Throws where a descendant has come or ended since this was made: what it took is not among
    /// the figures.
    void check_is_whole() const;

  private:
    long page_faults_of_ended_children() const;

    WatchedProcess process_;
    std::vector<WatchedProcess> descendants_;
    long page_faults_of_ended_before_;
};

} // namespace lookfar::bench
