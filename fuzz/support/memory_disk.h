#pragma once

#include "runtime/files/disk.h"

#include <cstddef>
#include <map>
#include <memory>
#include <optional>
#include <string>

namespace lookfar::fuzz {

/// A disk in memory, quick enough for thousands of runs a second. It can give a file in small
/// pieces, and fail.
class MemoryDisk : public Disk {
  public:
    /// The most bytes that one read gives; at least 1.
    std::size_t longest_read = 65536;
    /// So many operations go well, then one fails; all go well where there is no number.
    std::optional<std::size_t> operations_before_failure;

    void put(const std::string& path, std::string content);
    /// Nothing for a file that is missing.
    std::optional<std::string> content_of(const std::string& path) const;

    std::unique_ptr<DiskFile> open(const std::string& path, OpenMode mode) override;
    void remove(const std::string& path) override;
    void rename(const std::string& from, const std::string& to) override;
    std::string current_directory() override { return "/"; }

    /// Whether the operation that begins is the one that fails.
    bool fails_now();
    /// Throws a `Failure` where it is.
    void begin_operation(const std::string& path);

  private:
    using Content = std::shared_ptr<std::string>;

    Content existing(const std::string& path) const;

    std::map<std::string, Content> files_;
};

} // namespace lookfar::fuzz
