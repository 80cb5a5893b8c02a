#include "decoder/program/confinement.h"

#include "decoder/messages.h"
#include "runtime/descriptor.h"
#include "runtime/pictures/picture.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <fcntl.h>
#include <fstream>
#include <initializer_list>
#include <linux/landlock.h>
#include <memory>
#include <seccomp.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <system_error>
#include <type_traits>
#include <unistd.h>

namespace lookfar::decoder {

namespace {

[[noreturn]] void fail(int error) {
    throw std::system_error(error, std::generic_category());
}

/// Fails with the system's number of the error where it has just told one.
void expect_success(bool is_success) {
    if (!is_success)
        fail(errno);
}

/// The memory that has an address in this process.
rlim_t memory_in_use() {
    rlim_t pages = 0;
    if (!(std::ifstream("/proc/self/statm") >> pages))
        fail(EIO);
    return pages * static_cast<rlim_t>(::sysconf(_SC_PAGESIZE));
}

void limit(__rlimit_resource resource, rlim_t max) {
    const rlimit both{.rlim_cur = max, .rlim_max = max};
    expect_success(::setrlimit(resource, &both) == 0);
}

/// Bounds this process's memory, files and descriptors, and has it leave no core file.
void limit_resources() {
    // What the largest picture needs twice, with its file and its pixels of before, beyond what the
    // process has now.
    constexpr rlim_t max_memory = rlim_t{1} << 30U;
    // A column of pixels has the most bytes: rows padded to four, and the opacity.
    constexpr rlim_t max_file_size = max_pixels * 5;
    // Besides the kept files: three null ones, the socket, a body, Landlock's rules, a file that is
    // not kept.
    constexpr rlim_t max_descriptors = max_kept_files + 7;
    limit(RLIMIT_AS, memory_in_use() + max_memory);
    limit(RLIMIT_FSIZE, max_file_size);
    limit(RLIMIT_NOFILE, max_descriptors);
    limit(RLIMIT_CORE, 0);
}

/// Gives up all rights of this process to the files of the system, by Landlock, where the kernel
/// has it. It may gain no privileges any more.
void close_file_system() {
    // All rights to files that the versions of Landlock know, from the first one. The headers of an
    // older system don't name those of a newer kernel.
    constexpr std::array<std::uint64_t, 5> rights_of_versions{
        (1U << 13U) - 1, (1U << 14U) - 1, (1U << 15U) - 1, (1U << 15U) - 1, (1U << 16U) - 1};
    const long version =
        ::syscall(SYS_landlock_create_ruleset, nullptr, 0, LANDLOCK_CREATE_RULESET_VERSION);
    if (version < 1)
        return;
    const auto newest = static_cast<long>(rights_of_versions.size());
    const std::uint64_t rights =
        rights_of_versions[static_cast<std::size_t>(std::min(version, newest) - 1)];
    // The kernel tells structures by their size; this is the oldest one, which all versions know.
    const Descriptor rules(
        static_cast<int>(::syscall(SYS_landlock_create_ruleset, &rights, sizeof rights, 0)));
    expect_success(rules && ::syscall(SYS_landlock_restrict_self, rules.number(), 0) == 0);
}

/// The system calls that the process may make; any other one ends it.
class AllowList {
  public:
    AllowList() : filter_(::seccomp_init(SCMP_ACT_KILL_PROCESS)) {
        if (!filter_)
            fail(ENOMEM);
        expect(::seccomp_attr_set(filter_.get(), SCMP_FLTATR_ACT_BADARCH, SCMP_ACT_KILL_PROCESS));
    }

    void allow(std::initializer_list<int> calls) {
        for (const int call : calls)
            expect(::seccomp_rule_add_array(filter_.get(), SCMP_ACT_ALLOW, call, 0, nullptr));
    }

    void allow_if(int call, const scmp_arg_cmp& condition) {
        expect(::seccomp_rule_add_array(filter_.get(), SCMP_ACT_ALLOW, call, 1, &condition));
    }

    /// The caller gets an error and goes on.
    void refuse(std::initializer_list<int> calls) {
        for (const int call : calls)
            expect(
                ::seccomp_rule_add_array(filter_.get(), SCMP_ACT_ERRNO(EACCES), call, 0, nullptr));
    }

    void enforce() const { expect(::seccomp_load(filter_.get())); }

  private:
    struct Release {
        void operator()(scmp_filter_ctx filter) const { ::seccomp_release(filter); }
    };

    static void expect(int result) {
        if (result != 0)
            fail(-result);
    }

    std::unique_ptr<std::remove_pointer_t<scmp_filter_ctx>, Release> filter_;
};

scmp_arg_cmp equals(unsigned argument, std::uint64_t value) {
    return {.arg = argument, .op = SCMP_CMP_EQ, .datum_a = value, .datum_b = 0};
}

/// None of the bits of the mask.
scmp_arg_cmp lacks(unsigned argument, std::uint64_t mask) {
    return {.arg = argument, .op = SCMP_CMP_MASKED_EQ, .datum_a = mask, .datum_b = 0};
}

void allow_messages(AllowList& list, int socket) {
    for (const int call : {SCMP_SYS(recvmsg), SCMP_SYS(sendmsg)})
        list.allow_if(call, equals(0, static_cast<std::uint64_t>(socket)));
}

/// Memory, but none that code could be written to. A memory file of huge pages could be pulled away
/// from under the program that reads it.
void allow_memory(AllowList& list) {
    constexpr unsigned protection = 2;
    for (const int call : {SCMP_SYS(mmap), SCMP_SYS(mmap2), SCMP_SYS(mprotect)})
        list.allow_if(call, lacks(protection, PROT_EXEC));
    list.allow_if(SCMP_SYS(memfd_create), equals(1, MFD_CLOEXEC | MFD_ALLOW_SEALING));
    list.allow({SCMP_SYS(brk), SCMP_SYS(munmap), SCMP_SYS(mremap), SCMP_SYS(madvise),
                SCMP_SYS(ftruncate), SCMP_SYS(ftruncate64), SCMP_SYS(close)});
    for (const int call : {SCMP_SYS(fcntl), SCMP_SYS(fcntl64)})
        list.allow_if(call, equals(1, F_ADD_SEALS));
}

void allow_computing(AllowList& list) {
    list.allow({SCMP_SYS(futex), SCMP_SYS(futex_time64), SCMP_SYS(clock_gettime),
                SCMP_SYS(clock_gettime64), SCMP_SYS(getrandom), SCMP_SYS(exit),
                SCMP_SYS(exit_group)});
}

void refuse_probes(AllowList& list) {
    list.refuse({SCMP_SYS(open), SCMP_SYS(openat), SCMP_SYS(access), SCMP_SYS(faccessat),
                 SCMP_SYS(faccessat2), SCMP_SYS(stat), SCMP_SYS(lstat), SCMP_SYS(newfstatat),
                 SCMP_SYS(statx), SCMP_SYS(readlink), SCMP_SYS(readlinkat)});
}

} // namespace

void confine(int socket) {
    limit_resources();
    expect_success(::prctl(PR_SET_DUMPABLE, 0, 0, 0, 0) == 0);
    expect_success(::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0);
    close_file_system();
    AllowList list;
    allow_messages(list, socket);
    allow_memory(list);
    allow_computing(list);
    refuse_probes(list);
    list.enforce();
}

} // namespace lookfar::decoder
