#include "runtime/files/posix_file.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <system_error>
#include <thread>
#include <unistd.h>

namespace lookfar {

namespace {

std::unique_ptr<PosixFile> open_to_read(const std::string& path) {
    auto file = std::make_unique<PosixFile>(path, O_RDONLY);
    file->refuse_irregular();
    return file;
}

std::unique_ptr<PosixFile> create_new(const std::string& path) {
    return std::make_unique<PosixFile>(path, O_WRONLY | O_CREAT | O_EXCL);
}

std::unique_ptr<PosixFile> create(const std::string& path) {
    if (::unlink(path.c_str()) == -1 && errno != ENOENT)
        throw disk_failure(path, errno);
    return create_new(path);
}

std::unique_ptr<PosixFile> open_to_overwrite(const std::string& path) {
    try {
        auto file = std::make_unique<PosixFile>(path, O_WRONLY | O_NOFOLLOW);
        if (file->make_private())
            return file;
    } catch (const Failure&) {
        // It may be missing, a link, a pipe, or another user's.
    }
    return create(path);
}

/// The place that the symbolic links at the end of a path lead to.
std::string target_of(std::string path) {
    constexpr int max_links = 40;
    for (int links = 0; links < max_links; ++links) {
        std::error_code is_no_link;
        const auto target = std::filesystem::read_symlink(path, is_no_link);
        if (is_no_link)
            return path;
        path = (std::filesystem::path(path).parent_path() / target).string();
    }
    throw disk_failure(path, ELOOP);
}

std::optional<struct stat> status_of(const std::string& path) {
    struct stat status{};
    if (::stat(path.c_str(), &status) == 0)
        return status;
    if (errno != ENOENT)
        throw disk_failure(path, errno);
    return std::nullopt;
}

class PosixDisk : public Disk {
  public:
    explicit PosixDisk(std::chrono::milliseconds lock_wait) : lock_wait_(lock_wait) {}

    std::unique_ptr<DiskFile> open(const std::string& path, OpenMode mode) override {
        switch (mode) {
        case OpenMode::read:
            return open_to_read(path);
        case OpenMode::create:
            return create(path);
        case OpenMode::create_new:
            return create_new(path);
        case OpenMode::overwrite:
            return open_to_overwrite(path);
        }
        return nullptr;
    }

    void remove(const std::string& path) override {
        if (::unlink(path.c_str()) == -1)
            throw disk_failure(path, errno);
    }

    void replace(const std::string& from, const std::string& to) override {
        const std::string target = target_of(to);
        if (const auto old = status_of(target)) {
            PosixFile file(from, O_WRONLY | O_NOFOLLOW);
            file.copy_mode_and_owner_of(*old);
            file.sync();
        }
        if (std::rename(from.c_str(), target.c_str()) == -1)
            throw disk_failure(from, errno);
        open_folder_of(target)->sync();
    }

    std::optional<FileState> state(const std::string& path) override {
        const auto status = status_of(path);
        return status ? std::optional(state_of(*status)) : std::nullopt;
    }

    std::string folder_of(const std::string& path) override {
        const std::string target = target_of(path);
        return target.substr(0, target.rfind('/') + 1);
    }

    DiskLock lock_folder_of(const std::string& path) override {
        using std::chrono::steady_clock;
        constexpr std::chrono::milliseconds pause{10};
        auto folder = open_folder_of(path);
        const auto deadline = steady_clock::now() + lock_wait_;
        while (!folder->lock()) {
            if (steady_clock::now() >= deadline)
                throw file_in_use(path);
            std::this_thread::sleep_for(pause);
        }
        return folder;
    }

    std::string current_directory() override {
        std::error_code error;
        const auto path = std::filesystem::current_path(error);
        if (error)
            throw disk_failure(".", error.value());
        return path.string();
    }

  private:
    std::shared_ptr<PosixFile> open_folder_of(const std::string& path) {
        return std::make_shared<PosixFile>(folder_of(path) + ".", O_RDONLY | O_DIRECTORY);
    }

    std::chrono::milliseconds lock_wait_;
};

} // namespace

Failure disk_failure(const std::string& path, int error) {
    const FailureKind kind = error == ENOENT ? FailureKind::file_not_found : FailureKind::other;
    return {kind, error, path + ": " + std::generic_category().message(error)};
}

Failure file_in_use(const std::string& path) {
    return Failure(FailureKind::file_in_use, path + " is being changed by another program.");
}

std::unique_ptr<Disk> make_posix_disk(std::chrono::milliseconds lock_wait) {
    return std::make_unique<PosixDisk>(lock_wait);
}

} // namespace lookfar
