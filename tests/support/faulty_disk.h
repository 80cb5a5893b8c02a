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
    /// Called before every operation, told as "open-read Cams.inf", "open-create C1.DAT",
    /// "open-create-new Cams.inf.123", "open-overwrite data.dat", or "read", "write", "sync",
    /// "remove", "replace", "state" or "lock" and the name, and once more as "replaced Cams.inf"
    /// when a file has taken its place. What it throws is the operation's failure.
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
    void replace(const std::string& from, const std::string& to) override;
    std::optional<FileState> state(const std::string& path) override;
    std::string folder_of(const std::string& path) override { return disk_->folder_of(path); }
    /// Without waiting.
    DiskLock lock_folder_of(const std::string& path) override;
    std::string current_directory() override { return disk_->current_directory(); }

    void note(const std::string& operation);

  private:
    std::unique_ptr<Disk> disk_ = make_posix_disk(std::chrono::milliseconds(0));
};

} // namespace lookfar::testing
