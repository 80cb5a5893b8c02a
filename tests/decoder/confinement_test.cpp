#include "decoder/program/confinement.h"

#include <gtest/gtest.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <functional>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <netinet/in.h>
#include <string>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/ptrace.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

namespace lookfar::testing {
namespace {

constexpr std::size_t gigabyte = std::size_t{1} << 30U;

/// What was there before the process was locked in.
struct Before {
    Before() { ::socketpair(AF_UNIX, SOCK_SEQPACKET, 0, sockets.data()); }

    std::array<int, 2> sockets{};
    int internet_socket = ::socket(AF_INET, SOCK_DGRAM, 0);
    int file = ::open("/dev/null", O_RDWR);
    pid_t parent = ::getppid();
    void* page = map(4096, PROT_READ | PROT_WRITE);

    static void* map(std::size_t size, int protection) {
        return ::mmap(nullptr, size, protection, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    }
};

bool sends(int socket) {
    char byte = 0;
    iovec content{.iov_base = &byte, .iov_len = 1};
    msghdr header{};
    header.msg_iov = &content;
    header.msg_iovlen = 1;
    return ::sendmsg(socket, &header, 0) == 1;
}

bool connects(int socket) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(9);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return ::connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
}

bool runs(std::string program) {
    std::array<char*, 2> arguments{program.data(), nullptr};
    return ::execv(program.c_str(), arguments.data()) == 0;
}

bool makes_files(int count) {
    for (; count > 0; --count)
        if (::memfd_create("file", MFD_CLOEXEC | MFD_ALLOW_SEALING) == -1)
            return false;
    return true;
}

bool makes_file_of(std::size_t size) {
    const int file = ::memfd_create("file", MFD_CLOEXEC | MFD_ALLOW_SEALING);
    return ::ftruncate(file, static_cast<off_t>(size)) == 0;
}

bool raises_limit() {
    const rlimit limit{.rlim_cur = RLIM_INFINITY, .rlim_max = RLIM_INFINITY};
    return ::setrlimit(RLIMIT_CPU, &limit) == 0;
}

/// Has the system refuse the call by which a process gives up privileges.
void refuse_prctl() {
    std::array<sock_filter, 4> steps{
        sock_filter BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
        sock_filter BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, SYS_prctl, 0, 1),
        sock_filter BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | EPERM),
        sock_filter BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW)};
    const sock_fprog filter{.len = steps.size(), .filter = steps.data()};
    ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
    ::syscall(SYS_seccomp, SECCOMP_SET_MODE_FILTER, 0, &filter);
}

/// How a process ends that does some work and exits with what that gives.
int status_of(const std::function<int()>& work) {
    const pid_t process = ::fork();
    if (process == 0)
        std::_Exit(work());
    int status = -1;
    ::waitpid(process, &status, 0);
    return status;
}

using Deed = std::function<bool(const Before&)>;

/// What comes of a deed of a process that has locked itself in as the decoder does.
std::string outcome_of(const Deed& deed) {
    const int status = status_of([&deed] {
        const Before before;
        decoder::confine(before.sockets[0]);
        return deed(before) ? EXIT_SUCCESS : EXIT_FAILURE;
    });
    if (WIFSIGNALED(status))
        return ::strsignal(WTERMSIG(status));
    return WEXITSTATUS(status) == EXIT_SUCCESS ? "done" : "refused";
}

TEST(Confinement, LeavesComputingMemoryAndMessagesAndNothingElse) {
    const std::string ended = ::strsignal(SIGSYS);
    const struct {
        const char* name;
        std::string outcome;
        Deed deed;
    } deeds[] = {
        {"compute", "done", [](auto&) { return true; }},
        {"send", "done", [](auto& before) { return sends(before.sockets[0]); }},
        {"take memory", "done",
         [](auto&) { return Before::map(gigabyte / 2, PROT_WRITE) != MAP_FAILED; }},
        {"take too much memory", "refused",
         [](auto&) { return Before::map(2 * gigabyte, 0) != MAP_FAILED; }},
        {"make files", "done", [](auto&) { return makes_files(4); }},
        {"make too many files", "refused", [](auto&) { return makes_files(32); }},
        {"make too large a file", ::strsignal(SIGXFSZ),
         [](auto&) { return makes_file_of(gigabyte); }},
        {"make a file of huge pages", ended,
         [](auto&) { return ::memfd_create("file", MFD_CLOEXEC | MFD_HUGETLB) != -1; }},
        {"open", "refused", [](auto&) { return ::open("/etc/passwd", O_RDONLY) != -1; }},
        {"look", "refused", [](auto&) { return ::access("/etc/passwd", F_OK) == 0; }},
        {"read", ended, [](auto& before) { return ::read(before.file, before.page, 1) != -1; }},
        {"write", ended, [](auto& before) { return ::write(before.file, before.page, 1) != -1; }},
        {"socket", ended, [](auto&) { return ::socket(AF_UNIX, SOCK_STREAM, 0) != -1; }},
        {"connect", ended, [](auto& before) { return connects(before.internet_socket); }},
        {"send elsewhere", ended, [](auto& before) { return sends(before.sockets[1]); }},
        {"fork", ended, [](auto&) { return ::fork() != -1; }},
        {"exec", ended, [](auto&) { return runs("/bin/true"); }},
        {"ptrace", ended,
         [](auto& before) { return ::ptrace(PTRACE_SEIZE, before.parent, nullptr, nullptr) == 0; }},
        {"kill", ended, [](auto& before) { return ::kill(before.parent, 0) == 0; }},
        {"take memory to run", ended,
         [](auto&) { return Before::map(4096, PROT_EXEC) != MAP_FAILED; }},
        {"make memory run", ended,
         [](auto& before) { return ::mprotect(before.page, 4096, PROT_EXEC) == 0; }},
        {"raise a limit", ended, [](auto&) { return raises_limit(); }},
        {"become dumpable", ended, [](auto&) { return ::prctl(PR_SET_DUMPABLE, 1, 0, 0, 0) == 0; }},
    };
    for (const auto& [name, outcome, deed] : deeds)
        EXPECT_EQ(outcome_of(deed), outcome) << name;
}

TEST(Confinement, FailsWithTheErrorOfWhatTheSystemRefuses) {
    const int status = status_of([] {
        const Before before;
        refuse_prctl();
        try {
            decoder::confine(before.sockets[0]);
        } catch (const std::system_error& error) {
            return error.code().value();
        }
        return EXIT_SUCCESS;
    });
    EXPECT_EQ(WEXITSTATUS(status), EPERM);
}

} // namespace
} // namespace lookfar::testing
