#pragma once

#include <filesystem>
#include <string>

namespace lookfar::testing {

/// An empty folder that is the current directory as long as this lives.
class TemporaryFolder {
  public:
    TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder();

  private:
    std::filesystem::path before_;
    std::filesystem::path path_;
};

bool exists(const std::string& name);
std::string content_of(const std::string& name);
void write_file(const std::string& name, const std::string& content);

} // namespace lookfar::testing
