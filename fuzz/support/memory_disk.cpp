#include "fuzz/support/memory_disk.h"

#include "runtime/failure.h"

#include <algorithm>
#include <cerrno>
#include <string_view>
#include <utility>

namespace lookfar::fuzz {

namespace {

class MemoryFile : public DiskFile {
  public:
    MemoryFile(MemoryDisk& disk, std::string path, std::shared_ptr<std::string> content)
        : disk_(disk), path_(std::move(path)), content_(std::move(content)) {}

    std::size_t read(std::span<std::uint8_t> buffer) override {
        disk_.begin_operation(path_);
        const std::string_view rest = std::string_view(*content_).substr(position_);
        const std::size_t count = std::min({rest.size(), buffer.size(), disk_.longest_read});
        std::ranges::copy(rest.substr(0, count), buffer.begin());
        position_ += count;
        return count;
    }

    /// A write that fails has written the first half: so does a disk that becomes full.
    void write(std::span<const std::uint8_t> bytes) override {
        const bool fails = disk_.fails_now();
        const std::size_t count = fails ? bytes.size() / 2 : bytes.size();
        content_->append(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(count));
        if (fails)
            throw disk_failure(path_, ENOSPC);
    }

    void sync() override { disk_.begin_operation(path_); }

  private:
    MemoryDisk& disk_;
    std::string path_;
    std::shared_ptr<std::string> content_;
    std::size_t position_ = 0;
};

} // namespace

void MemoryDisk::put(const std::string& path, std::string content) {
    files_[path] = std::make_shared<std::string>(std::move(content));
}

std::optional<std::string> MemoryDisk::content_of(const std::string& path) const {
    const auto file = files_.find(path);
    return file == files_.end() ? std::nullopt : std::optional(*file->second);
}

std::unique_ptr<DiskFile> MemoryDisk::open(const std::string& path, OpenMode mode) {
    begin_operation(path);
    if (mode == OpenMode::write)
        put(path, {});
    return std::make_unique<MemoryFile>(*this, path, existing(path));
}

void MemoryDisk::remove(const std::string& path) {
    begin_operation(path);
    existing(path);
    files_.erase(path);
}

void MemoryDisk::rename(const std::string& from, const std::string& to) {
    begin_operation(from);
    files_[to] = existing(from);
    files_.erase(from);
}

bool MemoryDisk::fails_now() {
    return operations_before_failure && (*operations_before_failure)-- == 0;
}

void MemoryDisk::begin_operation(const std::string& path) {
    if (fails_now())
        throw disk_failure(path, EIO);
}

MemoryDisk::Content MemoryDisk::existing(const std::string& path) const {
    const auto file = files_.find(path);
    if (file == files_.end())
        throw disk_failure(path, ENOENT);
    return file->second;
}

} // namespace lookfar::fuzz
