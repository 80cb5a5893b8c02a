#include "decoder/program/resource_limits.h"

#include "decoder/messages.h"
#include "runtime/pictures/picture.h"

#include <cerrno>
#include <fstream>
#include <sys/resource.h>
#include <system_error>
#include <unistd.h>

namespace lookfar::decoder {

namespace {

/// The memory that has an address in this process.
rlim_t memory_in_use() {
    rlim_t pages = 0;
    if (!(std::ifstream("/proc/self/statm") >> pages))
        throw std::system_error(EIO, std::generic_category());
    return pages * static_cast<rlim_t>(::sysconf(_SC_PAGESIZE));
}

void limit(__rlimit_resource resource, rlim_t max) {
    const rlimit both{.rlim_cur = max, .rlim_max = max};
    if (::setrlimit(resource, &both) != 0)
        throw std::system_error(errno, std::generic_category());
}

} // namespace

void limit_resources() {
    // A column of pixels has the most bytes: rows padded to four, and the opacity.
    constexpr rlim_t largest_file = max_pixels * 5;
    // Besides the kept files: three null ones, the socket, a body, Landlock's rules, a file that is
    // not kept.
    constexpr rlim_t max_descriptors = max_kept_files + 7;
    limit(RLIMIT_AS, memory_in_use() + max_memory);
    limit(RLIMIT_FSIZE, largest_file);
    limit(RLIMIT_NOFILE, max_descriptors);
    limit(RLIMIT_CORE, 0);
}

} // namespace lookfar::decoder
