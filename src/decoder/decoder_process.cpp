#include "decoder/decoder_process.h"

#include "decoder/decoder_failures.h"
#include "decoder/messages.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <ctime>
#include <fcntl.h>
#include <spawn.h>
#include <string>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <utility>

namespace lookfar::decoder {

namespace {

void expect_success(int error) {
    if (error != 0)
        throw cannot_be_started(error);
}

/// What is done to the descriptors and the folder of the new process.
class SpawnActions {
  public:
    explicit SpawnActions(int socket) {
        expect_success(::posix_spawn_file_actions_init(&actions_));
        for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
            expect_success(
                ::posix_spawn_file_actions_addopen(&actions_, stream, "/dev/null", O_RDWR, 0));
        expect_success(::posix_spawn_file_actions_adddup2(&actions_, socket, decoder_socket));
        expect_success(::posix_spawn_file_actions_addclosefrom_np(&actions_, decoder_socket + 1));
        expect_success(::posix_spawn_file_actions_addchdir_np(&actions_, "/"));
    }
    SpawnActions(const SpawnActions&) = delete;
    SpawnActions& operator=(const SpawnActions&) = delete;
    ~SpawnActions() { ::posix_spawn_file_actions_destroy(&actions_); }

    const posix_spawn_file_actions_t* get() const { return &actions_; }

  private:
    posix_spawn_file_actions_t actions_{};
};

/// No signal is blocked or ignored, and no terminal's signal comes.
class SpawnAttributes {
  public:
    SpawnAttributes() {
        sigset_t none;
        sigset_t all;
        ::sigemptyset(&none);
        ::sigfillset(&all);
        expect_success(::posix_spawnattr_init(&attributes_));
        expect_success(::posix_spawnattr_setsigmask(&attributes_, &none));
        expect_success(::posix_spawnattr_setsigdefault(&attributes_, &all));
        expect_success(::posix_spawnattr_setflags(
            &attributes_, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSID));
    }
    SpawnAttributes(const SpawnAttributes&) = delete;
    SpawnAttributes& operator=(const SpawnAttributes&) = delete;
    ~SpawnAttributes() { ::posix_spawnattr_destroy(&attributes_); }

    const posix_spawnattr_t* get() const { return &attributes_; }

  private:
    posix_spawnattr_t attributes_{};
};

std::pair<Descriptor, Descriptor> connected_sockets() {
    std::array<int, 2> ends{};
    if (::socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends.data()) != 0)
        throw cannot_be_started(errno);
    return {Descriptor(ends[0]), Descriptor(ends[1])};
}

pid_t spawn(std::string program, int socket) {
    const SpawnActions actions(socket);
    const SpawnAttributes attributes;
    std::array<char*, 2> arguments{program.data(), nullptr};
    std::array<char*, 1> environment{nullptr};
    pid_t process = -1;
    expect_success(::posix_spawn(&process, program.c_str(), actions.get(), attributes.get(),
                                 arguments.data(), environment.data()));
    return process;
}

} // namespace

std::filesystem::path decoder_of_this_program() {
    std::error_code ignored;
    const auto folder = std::filesystem::read_symlink("/proc/self/exe", ignored).parent_path();
    const auto beside = folder / "lookfar-decoder";
    return std::filesystem::exists(beside, ignored) ? beside : folder / LOOKFAR_INSTALLED_DECODER;
}

DecoderProcess::DecoderProcess(const std::filesystem::path& program) {
    auto sockets = connected_sockets();
    process_ = spawn(program.string(), sockets.second.number());
    socket_ = std::move(sockets.first);
}

DecoderProcess::~DecoderProcess() {
    ::kill(process_, SIGKILL);
    uninterrupted([this] { return ::waitpid(process_, nullptr, 0); });
}

void DecoderProcess::allow_processor_time(std::chrono::seconds time) const {
    clockid_t clock{};
    std::timespec used{};
    if (::clock_getcpuclockid(process_, &clock) != 0 || ::clock_gettime(clock, &used) != 0)
        return;
    const rlimit limit{.rlim_cur = static_cast<rlim_t>(used.tv_sec + 1 + time.count()),
                       .rlim_max = RLIM_INFINITY};
    ::prlimit(process_, RLIMIT_CPU, &limit, nullptr);
}

} // namespace lookfar::decoder
