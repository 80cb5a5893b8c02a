#pragma once

#include "runtime/descriptor.h"
#include "runtime/files/disk.h"

#include <string>
#include <sys/stat.h>

namespace lookfar {

/// The state that the system's words about a file come to.
FileState state_of(const struct stat& status);

/// A file or a folder under a descriptor of the system's.
class PosixFile : public DiskFile {
  public:
    /// Opens with the system's flags; a file that is made is the user's alone.
    PosixFile(std::string path, int flags);

    std::size_t read(std::span<std::uint8_t> buffer) override;
    void write(std::span<const std::uint8_t> bytes) override;
    void sync() override;
    FileState state() override;

    void refuse_irregular() const;
    /// Removes the rights of all others. Gives false where what is written here would reach another
    /// name or another user all the same.
    bool make_private() const;
    /// As far as the system allows it. Where the group can't be kept its rights go, so that nobody
    /// sees more than before.
    void copy_mode_and_owner_of(const struct stat& old) const;
    /// Gives false while another program holds the lock. Throws where there are no locks.
    bool lock() const;

  private:
    struct stat status() const;

    std::string path_;
    Descriptor descriptor_;
};

} // namespace lookfar
