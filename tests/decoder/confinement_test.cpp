#include <gtest/gtest.h>

#include <array>
#include <csignal>
#include <cstring>
#include <spawn.h>
#include <string>
#include <sys/wait.h>

namespace lookfar::testing {
namespace {

/// What comes of a deed of a process that is locked in.
std::string outcome_of(std::string deed) {
    std::string program = LOOKFAR_CONFINEMENT_PROBE;
    std::array<char*, 3> arguments{program.data(), deed.data(), nullptr};
    pid_t process = -1;
    ::posix_spawn(&process, program.c_str(), nullptr, nullptr, arguments.data(), nullptr);
    int status = -1;
    ::waitpid(process, &status, 0);
    if (WIFSIGNALED(status))
        return ::strsignal(WTERMSIG(status));
    constexpr int refused = 3;
    return WEXITSTATUS(status) == refused ? "refused"
           : WEXITSTATUS(status) == 0     ? "done"
                                          : "failed";
}

TEST(Confinement, LeavesComputingMemoryAndMessagesAndNothingElse) {
    const std::string ended = ::strsignal(SIGSYS);
    const std::pair<std::string, std::string> deeds[] = {
        {"compute", "done"},
        {"send", "done"},
        {"take memory", "done"},
        {"take too much memory", "refused"},
        {"make files", "done"},
        {"make too many files", "refused"},
        {"make too large a file", ::strsignal(SIGXFSZ)},
        {"make a file of huge pages", ended},
        {"open", "refused"},
        {"look", "refused"},
        {"read", ended},
        {"write", ended},
        {"socket", ended},
        {"connect", ended},
        {"send elsewhere", ended},
        {"fork", ended},
        {"exec", ended},
        {"ptrace", ended},
        {"kill", ended},
        {"take memory to run", ended},
        {"make memory run", ended},
        {"raise a limit", ended},
        {"become dumpable", ended},
        {"be locked in without prctl", "refused"},
    };
    for (const auto& [deed, outcome] : deeds)
        EXPECT_EQ(outcome_of(deed), outcome) << deed;
}

} // namespace
} // namespace lookfar::testing
