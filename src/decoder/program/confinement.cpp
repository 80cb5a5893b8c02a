#include "decoder/program/confinement.h"

#include "decoder/program/landlock.h"
#include "decoder/program/resource_limits.h"

#include <cerrno>
#include <cstdint>
#include <fcntl.h>
#include <initializer_list>
#include <memory>
#include <seccomp.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <system_error>
#include <type_traits>

namespace lookfar::decoder {

namespace {

void expect_success(bool is_success, int error) {
    if (!is_success)
        throw std::system_error(error, std::generic_category());
}

/// The system calls that the process may make; any other one ends it.
class AllowList {
  public:
    AllowList() : filter_(::seccomp_init(SCMP_ACT_KILL_PROCESS)) {
        expect_success(filter_ != nullptr, ENOMEM);
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

    static void expect(int result) { expect_success(result == 0, -result); }

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
    expect_success(::prctl(PR_SET_DUMPABLE, 0, 0, 0, 0) == 0, errno);
    expect_success(::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0, errno);
    close_file_system();
    AllowList list;
    allow_messages(list, socket);
    allow_memory(list);
    allow_computing(list);
    refuse_probes(list);
    list.enforce();
}

} // namespace lookfar::decoder
