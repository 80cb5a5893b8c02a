#include "support/faulty_disk.h"

#include <algorithm>
#include <filesystem>
#include <utility>

namespace lookfar::testing {

namespace {

class FaultyFile : public DiskFile {
  public:
    FaultyFile(FaultyDisk& disk, std::string name, std::unique_ptr<DiskFile> file)
        : disk_(disk), name_(std::move(name)), file_(std::move(file)) {}

    std::size_t read(std::span<std::uint8_t> buffer) override {
        disk_.note("read " + name_);
        return file_->read(buffer.first(std::min(buffer.size(), disk_.longest_read)));
    }
    /// A write that fails has written the first half: so does a disk that becomes full.
    void write(std::span<const std::uint8_t> bytes) override {
        try {
            disk_.note("write " + name_);
        } catch (const Failure&) {
            file_->write(bytes.first(bytes.size() / 2));
            throw;
        }
        file_->write(bytes);
    }
    /// No test can see whether bytes outlive a loss of power; waiting for them takes its time.
    void sync() override { disk_.note("sync " + name_); }
    FileState state() override { return file_->state(); }

  private:
    FaultyDisk& disk_;
    std::string name_;
    std::unique_ptr<DiskFile> file_;
};

std::string name_of(const std::string& path) {
    return std::filesystem::path(path).filename().string();
}

} // namespace

void FaultyDisk::fail(const std::string& operation, int error) {
    before = [operation, error](const std::string& next) {
        if (next.starts_with(operation))
            throw disk_failure(next, error);
    };
}

std::unique_ptr<DiskFile> FaultyDisk::open(const std::string& path, OpenMode mode) {
    const std::string name = name_of(path);
    const char* const words[] = {"open-read ", "open-create ", "open-create-new ",
                                 "open-overwrite "};
    note(words[static_cast<int>(mode)] + name);
    return std::make_unique<FaultyFile>(*this, name, disk_->open(path, mode));
}

void FaultyDisk::remove(const std::string& path) {
    note("remove " + name_of(path));
    disk_->remove(path);
}

void FaultyDisk::replace(const std::string& from, const std::string& to) {
    note("replace " + name_of(to));
    disk_->replace(from, to);
    note("replaced " + name_of(to));
}

std::optional<FileState> FaultyDisk::state(const std::string& path) {
    note("state " + name_of(path));
    return disk_->state(path);
}

DiskLock FaultyDisk::lock_folder_of(const std::string& path) {
    note("lock " + name_of(path));
    return disk_->lock_folder_of(path);
}

void FaultyDisk::note(const std::string& operation) {
    operations.push_back(operation);
    if (before)
        before(operation);
}

} // namespace lookfar::testing
