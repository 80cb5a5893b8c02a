#include "decoder/program/landlock.h"

#include "runtime/descriptor.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <linux/landlock.h>
#include <sys/syscall.h>
#include <system_error>

namespace lookfar::decoder {

namespace {

/// All rights to files that the versions of Landlock know, from the first one. The headers of an
/// older system don't name those of a newer kernel.
constexpr std::array<std::uint64_t, 5> rights_of_versions{
    (1U << 13U) - 1, (1U << 14U) - 1, (1U << 15U) - 1, (1U << 15U) - 1, (1U << 16U) - 1};

long kernel_version() {
    return ::syscall(SYS_landlock_create_ruleset, nullptr, 0, LANDLOCK_CREATE_RULESET_VERSION);
}

} // namespace

void close_file_system() {
    const long version = kernel_version();
    if (version < 1)
        return;
    const auto newest = static_cast<long>(rights_of_versions.size());
    const std::uint64_t rights =
        rights_of_versions[static_cast<std::size_t>(std::min(version, newest) - 1)];
    // The kernel tells structures by their size; this is the oldest one, which all versions know.
    const Descriptor rules(
        static_cast<int>(::syscall(SYS_landlock_create_ruleset, &rights, sizeof rights, 0)));
    if (!rules || ::syscall(SYS_landlock_restrict_self, rules.number(), 0) != 0)
        throw std::system_error(errno, std::generic_category());
}

} // namespace lookfar::decoder
