#include "support/temporary_folder.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace lookfar::testing {

TemporaryFolder::TemporaryFolder() : before_(std::filesystem::current_path()) {
    std::string name = (std::filesystem::temp_directory_path() / "lookfar-XXXXXX").string();
    if (!::mkdtemp(name.data()))
        throw std::runtime_error("No temporary folder can be made.");
    path_ = name;
    std::filesystem::current_path(path_);
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::current_path(before_, ignored);
    std::filesystem::remove_all(path_, ignored);
}

bool exists(const std::string& name) {
    return std::filesystem::exists(name);
}

std::string content_of(const std::string& name) {
    std::ifstream file(name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void write_file(const std::string& name, const std::string& content) {
    std::ofstream(name, std::ios::binary) << content;
}

} // namespace lookfar::testing
