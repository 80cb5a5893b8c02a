#include "runtime/files/disk.h"

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace lookfar {

namespace {

[[noreturn]] void fail(const std::string& path, int error) {
    throw disk_failure(path, error);
}

/// Repeats a system call that a signal has interrupted.
template <class Call>
auto uninterrupted(Call call) {
    auto result = call();
    while (result == -1 && errno == EINTR)
        result = call();
    return result;
}

class PosixFile : public DiskFile {
  public:
    PosixFile(std::string path, int descriptor) : path_(std::move(path)), descriptor_(descriptor) {}
    PosixFile(const PosixFile&) = delete;
    PosixFile& operator=(const PosixFile&) = delete;
    ~PosixFile() override { ::close(descriptor_); }

    void refuse_irregular() const {
        struct stat status {};
        if (::fstat(descriptor_, &status) == -1)
            fail(path_, errno);
        if (S_ISDIR(status.st_mode))
            fail(path_, EISDIR);
        if (!S_ISREG(status.st_mode))
            fail(path_, EINVAL);
    }

    std::size_t read(std::span<std::uint8_t> buffer) override {
        const auto count =
            uninterrupted([&] { return ::read(descriptor_, buffer.data(), buffer.size()); });
        if (count == -1)
            fail(path_, errno);
        return static_cast<std::size_t>(count);
    }

    void write(std::span<const std::uint8_t> bytes) override {
        while (!bytes.empty()) {
            const auto count =
                uninterrupted([&] { return ::write(descriptor_, bytes.data(), bytes.size()); });
            if (count == -1)
                fail(path_, errno);
            bytes = bytes.subspan(static_cast<std::size_t>(count));
        }
    }

    void sync() override {
        if (uninterrupted([&] { return ::fsync(descriptor_); }) == -1)
            fail(path_, errno);
    }

  private:
    std::string path_;
    int descriptor_;
};

int flags_of(OpenMode mode) {
    switch (mode) {
    case OpenMode::read:
        return O_RDONLY;
    case OpenMode::write:
        return O_WRONLY | O_CREAT | O_TRUNC;
    case OpenMode::overwrite:
        return O_WRONLY | O_CREAT;
    }
    return O_RDONLY;
}

int open_descriptor(const std::string& path, int flags) {
    constexpr mode_t permissions = 0666;
    // A pipe in the place of a file must not hold up the program.
    const int descriptor = uninterrupted(
        [&] { return ::open(path.c_str(), flags | O_CLOEXEC | O_NONBLOCK, permissions); });
    if (descriptor == -1)
        fail(path, errno);
    return descriptor;
}

class PosixDisk : public Disk {
  public:
    std::unique_ptr<DiskFile> open(const std::string& path, OpenMode mode) override {
        auto file = std::make_unique<PosixFile>(path, open_descriptor(path, flags_of(mode)));
        file->refuse_irregular();
        return file;
    }

    void remove(const std::string& path) override {
        if (::unlink(path.c_str()) == -1)
            fail(path, errno);
    }

    void rename(const std::string& from, const std::string& to) override {
        if (::rename(from.c_str(), to.c_str()) == -1)
            fail(from, errno);
        const auto folder = std::filesystem::path(to).parent_path();
        const std::string folder_path = folder.empty() ? "." : folder.string();
        PosixFile(folder_path, open_descriptor(folder_path, O_RDONLY | O_DIRECTORY)).sync();
    }

    std::string current_directory() override {
        std::error_code error;
        const auto path = std::filesystem::current_path(error);
        if (error)
            fail(".", error.value());
        return path.string();
    }
};

} // namespace

Failure disk_failure(const std::string& path, int error) {
    const FailureKind kind = error == ENOENT ? FailureKind::file_not_found : FailureKind::other;
    return {kind, error, path + ": " + std::generic_category().message(error)};
}

std::unique_ptr<Disk> make_posix_disk() {
    return std::make_unique<PosixDisk>();
}

} // namespace lookfar
