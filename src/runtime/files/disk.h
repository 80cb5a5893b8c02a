#pragma once

#include "runtime/failure.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>

namespace lookfar {

/// The failure of an operation on a path, with the operating system's error number and text.
Failure disk_failure(const std::string& path, int error);

/// The failure of whoever finds a file in the hands of another program for too long.
Failure file_in_use(const std::string& path);

enum class OpenMode {
    /// An existing file, for reading. Symbolic links are followed.
    read,
    /// A new file. What bore its name before is removed, and so never written into, whatever file
    /// it may have been a link to.
    create,
    /// A new file, under a name that nothing bears; else it fails.
    create_new,
    /// A file that is kept as it is and written over from its start. It must be a plain file of
    /// one name, and no link; else it is replaced, as by `create`.
    overwrite,
};

/// Which file it is and when it was last written: while two states are equal, the file was neither
/// written nor replaced by another one.
struct FileState {
    std::uint64_t device = 0;
    std::uint64_t number_on_device = 0;
    /// Bytes.
    std::uint64_t size = 0;
    /// Since the system's epoch.
    std::chrono::nanoseconds written{};

    bool operator==(const FileState&) const = default;
    /// A server may set the time anew once a file is closed.
    bool equals_but_for_time(const FileState& other) const {
        return device == other.device && number_on_device == other.number_on_device &&
               size == other.size;
    }
};

/// An open file, closed by its destruction. Every operation throws a `disk_failure` where it fails.
class DiskFile {
  public:
    virtual ~DiskFile() = default;

    /// Gives back the count of bytes read, 0 at the end of the file.
    virtual std::size_t read(std::span<std::uint8_t> buffer) = 0;
    virtual void write(std::span<const std::uint8_t> bytes) = 0;
    /// Returns when all that was written is on the disk.
    virtual void sync() = 0;
    virtual FileState state() = 0;
};

/// Held until its destruction.
using DiskLock = std::shared_ptr<void>;

/// The file operations that everything above is made of. Paths are relative to the current
/// directory. Only regular files are opened, and those that are made are the user's alone.
class Disk {
  public:
    virtual ~Disk() = default;

    virtual std::unique_ptr<DiskFile> open(const std::string& path, OpenMode mode) = 0;
    virtual void remove(const std::string& path) = 0;
    /// Has `from` replace `to` in one step, and returns when the folder is on the disk. A file that
    /// is replaced leaves its mode and owner to the new one, as far as the system allows it. A
    /// symbolic link stays: the file that it leads to is replaced.
    virtual void replace(const std::string& from, const std::string& to) = 0;
    /// The state of the file that a path leads to; nothing where there is none.
    virtual std::optional<FileState> state(const std::string& path) = 0;
    /// The folder of the file that a path leads to, up to the last slash; empty for the current
    /// directory.
    virtual std::string folder_of(const std::string& path) = 0;
    /// Locks that folder against every program that asks for the same lock. Waits a little for one
    /// that holds it, then throws a `Failure` of the kind `file_in_use`. Throws another failure
    /// where the file system knows no locks.
    virtual DiskLock lock_folder_of(const std::string& path) = 0;
    /// The current directory's absolute path.
    virtual std::string current_directory() = 0;
};

/// How long a lock is waited for.
inline constexpr std::chrono::milliseconds longest_lock_wait{2000};

/// The disk of this machine.
std::unique_ptr<Disk> make_posix_disk(std::chrono::milliseconds lock_wait = longest_lock_wait);

} // namespace lookfar
