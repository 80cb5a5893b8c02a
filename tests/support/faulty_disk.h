#pragma once

#include "runtime/files/disk.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace lookfar::testing {

/// The disk of this machine, on which operations fail on demand.
class FaultyDisk : public Disk {
  public:
    /// Called before every operation, told as "open-read Cams.inf", "open-write C1.DAT",
    /// "open-overwrite data.dat", "read", "write" or "sync" and the path, "remove" and the path,
    /// or "rename" and both paths. What it throws is the operation's failure.
    std::function<void(const std::string& operation)> before;

    /// Has every operation that starts so fail with this error number.
    void fail(const std::string& operation, int error);
    void mend() { before = {}; }

    /// The most bytes that one read gives.
    std::size_t longest_read = 65536;

    /// All operations so far.
    std::vector<std::string> operations;

    std::unique_ptr<DiskFile> open(const std::string& path, OpenMode mode) override;
    void remove(const std::string& path) override;
    void rename(const std::string& from, const std::string& to) override;
    std::string current_directory() override { return disk_->current_directory(); }

    void note(const std::string& operation);

  private:
    std::unique_ptr<Disk> disk_ = make_posix_disk();
};

} // namespace lookfar::testing
