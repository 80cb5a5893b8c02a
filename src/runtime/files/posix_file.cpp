#include "runtime/files/posix_file.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <tuple>
#include <unistd.h>
#include <utility>

namespace lookfar {

namespace {

constexpr mode_t rights_of_others = S_IRWXG | S_IRWXO;

Descriptor open_descriptor(const std::string& path, int flags) {
    constexpr mode_t users_alone = S_IRUSR | S_IWUSR;
    // A pipe in the place of a file must not hold up the program.
    Descriptor descriptor(uninterrupted(
        [&] { return ::open(path.c_str(), flags | O_CLOEXEC | O_NONBLOCK, users_alone); }));
    if (!descriptor)
        throw disk_failure(path, errno);
    return descriptor;
}

} // namespace

FileState state_of(const struct stat& status) {
    return {.device = status.st_dev,
            .number_on_device = status.st_ino,
            .size = static_cast<std::uint64_t>(status.st_size),
            .written = std::chrono::seconds(status.st_mtim.tv_sec) +
                       std::chrono::nanoseconds(status.st_mtim.tv_nsec)};
}

PosixFile::PosixFile(std::string path, int flags)
    : path_(std::move(path)), descriptor_(open_descriptor(path_, flags)) {}

std::size_t PosixFile::read(std::span<std::uint8_t> buffer) {
    const auto count =
        uninterrupted([&] { return ::read(descriptor_.number(), buffer.data(), buffer.size()); });
    if (count == -1)
        throw disk_failure(path_, errno);
    return static_cast<std::size_t>(count);
}

void PosixFile::write(std::span<const std::uint8_t> bytes) {
    while (!bytes.empty()) {
        const auto count = uninterrupted(
            [&] { return ::write(descriptor_.number(), bytes.data(), bytes.size()); });
        if (count == -1)
            throw disk_failure(path_, errno);
        bytes = bytes.subspan(static_cast<std::size_t>(count));
    }
}

void PosixFile::sync() {
    if (uninterrupted([&] { return ::fsync(descriptor_.number()); }) == -1)
        throw disk_failure(path_, errno);
}

FileState PosixFile::state() {
    return state_of(status());
}

void PosixFile::refuse_irregular() const {
    const mode_t mode = status().st_mode;
    if (!S_ISREG(mode))
        throw disk_failure(path_, S_ISDIR(mode) ? EISDIR : EINVAL);
}

bool PosixFile::make_private() const {
    const auto own = status();
    if (!S_ISREG(own.st_mode) || own.st_nlink != 1)
        return false;
    return (own.st_mode & rights_of_others) == 0 ||
           ::fchmod(descriptor_.number(), own.st_mode & S_IRWXU) == 0;
}

void PosixFile::copy_mode_and_owner_of(const struct stat& old) const {
    const auto own = status();
    const bool keeps_group =
        own.st_gid == old.st_gid || ::fchown(descriptor_.number(), own.st_uid, old.st_gid) == 0;
    const mode_t mode = old.st_mode & (S_IRWXU | (keeps_group ? S_IRWXG : 0) | S_IRWXO);
    // What is not allowed is left: the file is still the user's alone then.
    std::ignore = ::fchmod(descriptor_.number(), mode);
    std::ignore = ::fchown(descriptor_.number(), old.st_uid, old.st_gid);
}

bool PosixFile::lock() const {
    if (uninterrupted([&] { return ::flock(descriptor_.number(), LOCK_EX | LOCK_NB); }) == 0)
        return true;
    if (errno != EWOULDBLOCK)
        throw disk_failure(path_, errno);
    return false;
}

struct stat PosixFile::status() const {
    struct stat status{};
    if (::fstat(descriptor_.number(), &status) == -1)
        throw disk_failure(path_, errno);
    return status;
}

} // namespace lookfar
