#pragma once

#include "runtime/failure.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>

namespace lookfar {

/// The failure of an operation on a path, with the operating system's error number and text.
Failure disk_failure(const std::string& path, int error);

enum class OpenMode {
    /// An existing file, for reading.
    read,
    /// Created, or emptied.
    write,
    /// Created where it is missing, otherwise kept as it is and written over from its start.
    overwrite,
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
};

/// The file operations that everything above is made of. Paths are relative to the current
/// directory. Only regular files are opened.
class Disk {
  public:
    virtual ~Disk() = default;

    virtual std::unique_ptr<DiskFile> open(const std::string& path, OpenMode mode) = 0;
    virtual void remove(const std::string& path) = 0;
    /// Takes the place of `to` in one step, and returns when the folder is on the disk.
    virtual void rename(const std::string& from, const std::string& to) = 0;
    /// The current directory's absolute path.
    virtual std::string current_directory() = 0;
};

/// The disk of this machine.
std::unique_ptr<Disk> make_posix_disk();

} // namespace lookfar
