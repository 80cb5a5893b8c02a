// Locks itself in as the decoder does, and then does the deed that its argument names. It ends with
// status 0 where that succeeds, with that of `refused` where the system refuses it, and by a signal
// where the system ends it. It says `refused`, too, where it is told that it can't be locked in.
#include "decoder/program/confinement.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <cstdlib>
#include <fcntl.h>
#include <functional>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <map>
#include <netinet/in.h>
#include <string>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/ptrace.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <system_error>
#include <unistd.h>

namespace {

constexpr int refused = 3;
constexpr std::size_t gigabyte = std::size_t{1} << 30U;

/// What was there before the process was locked in.
struct Before {
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

bool does(const std::string& deed, const Before& before) {
    const std::map<std::string, std::function<bool()>> deeds{
        {"compute", [] { return true; }},
        {"send", [&] { return sends(before.sockets[0]); }},
        {"take memory", [] { return Before::map(gigabyte / 2, PROT_WRITE) != MAP_FAILED; }},
        {"take too much memory", [] { return Before::map(2 * gigabyte, 0) != MAP_FAILED; }},
        {"make files", [] { return makes_files(4); }},
        {"make too many files", [] { return makes_files(32); }},
        {"make too large a file", [] { return makes_file_of(gigabyte); }},
        {"make a file of huge pages",
         [] { return ::memfd_create("file", MFD_CLOEXEC | MFD_HUGETLB) != -1; }},
        {"open", [] { return ::open("/etc/passwd", O_RDONLY) != -1; }},
        {"look", [] { return ::access("/etc/passwd", F_OK) == 0; }},
        {"read", [&] { return ::read(before.file, before.page, 1) != -1; }},
        {"write", [&] { return ::write(before.file, before.page, 1) != -1; }},
        {"socket", [] { return ::socket(AF_UNIX, SOCK_STREAM, 0) != -1; }},
        {"connect", [&] { return connects(before.internet_socket); }},
        {"send elsewhere", [&] { return sends(before.sockets[1]); }},
        {"fork", [] { return ::fork() != -1; }},
        {"exec", [] { return runs("/bin/true"); }},
        {"ptrace", [&] { return ::ptrace(PTRACE_SEIZE, before.parent, nullptr, nullptr) == 0; }},
        {"kill", [&] { return ::kill(before.parent, 0) == 0; }},
        {"take memory to run", [] { return Before::map(4096, PROT_EXEC) != MAP_FAILED; }},
        {"make memory run", [&] { return ::mprotect(before.page, 4096, PROT_EXEC) == 0; }},
        {"raise a limit", raises_limit},
        {"become dumpable", [] { return ::prctl(PR_SET_DUMPABLE, 1, 0, 0, 0) == 0; }},
    };
    return deeds.at(deed)();
}

} // namespace

int main(int, char** arguments) {
    Before before;
    ::socketpair(AF_UNIX, SOCK_SEQPACKET, 0, before.sockets.data());
    const std::string deed = arguments[1];
    if (deed == "be locked in without prctl")
        refuse_prctl();
    try {
        lookfar::decoder::confine(before.sockets[0]);
    } catch (const std::system_error& error) {
        std::_Exit(error.code().value() == EPERM ? refused : EXIT_FAILURE);
    }
    std::_Exit(does(deed, before) ? EXIT_SUCCESS : refused);
}
