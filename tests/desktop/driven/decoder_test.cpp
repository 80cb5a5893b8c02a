#include "desktop/driven/driven_test.h"

#include <fstream>
#include <iterator>
#include <unistd.h>

namespace lookfar::driven {
namespace {

namespace fs = std::filesystem;
using lookfar::testing::content_of;

fs::path folder_of(qint64 process) {
    return fs::path("/proc") / std::to_string(process);
}

/// What the system tells of the process under that name, such as Seccomp.
std::string told_of(qint64 process, const std::string& name) {
    const std::string status = content_of(folder_of(process) / "status");
    const std::string beginning = "\n" + name + ":\t";
    const auto place = status.find(beginning);
    return place == std::string::npos ? "" : status.substr(place + beginning.size(), 1);
}

bool is_gone(qint64 process) {
    const std::string state = told_of(process, "State");
    return state.empty() || state == "Z";
}

class LockedInDecoder : public DrivenTest {
  protected:
    void SetUp() override {
        start({"Harbour"});
        ASSERT_TRUE(comes_to_show(picture(), colour::red));
    }

    pid_t decoder() const {
        std::set<pid_t> children;
        for (const auto& thread : fs::directory_iterator(folder_of(program.processId()) / "task")) {
            std::ifstream list(thread.path() / "children");
            children.insert(std::istream_iterator<pid_t>(list), {});
        }
        EXPECT_EQ(children.size(), 1U);
        return children.empty() ? -1 : *children.begin();
    }
};

TEST_F(LockedInDecoder, HoldsNothingButItsSocketAndTheProgramHoldsNoDecoder) {
    const auto folder_of_decoder = folder_of(decoder());
    EXPECT_EQ(told_of(decoder(), "Seccomp"), LOOKFAR_IS_CONFINED ? "2" : "0");
    EXPECT_EQ(told_of(decoder(), "NoNewPrivs"), LOOKFAR_IS_CONFINED ? "1" : "0");
    // Of a process that leaves no core, the system tells the rest to the administrator alone.
    std::error_code refusal;
    const fs::directory_iterator descriptors(folder_of_decoder / "fd", refusal);
    if (refusal) {
        EXPECT_NE(::geteuid(), 0U);
    } else {
        std::string held;
        for (const auto& descriptor : descriptors) {
            const std::string target = fs::read_symlink(descriptor);
            held += target.substr(0, target.find(':')) + ' ';
        }
        EXPECT_EQ(held, "/dev/null /dev/null /dev/null socket ");
        EXPECT_EQ(fs::read_symlink(folder_of_decoder / "cwd"), "/");
        EXPECT_EQ(content_of(folder_of_decoder / "environ"), "");
    }
    const std::string maps = content_of(folder_of(program.processId()) / "maps");
    EXPECT_NE(maps.find("libQt6Gui"), std::string::npos);
    for (const char* library : {"jpeg", "webp", "imageformats"})
        EXPECT_EQ(maps.find(library), std::string::npos) << library;
}

TEST_F(LockedInDecoder, ThatHangsHoldsUpNoEndAndOutlivesNoProgram) {
    const pid_t hanging = decoder();
    ::kill(hanging, SIGSTOP);
    cameras->answer("/Harbour", showing(colour::green));
    const auto requests = cameras->requests();
    click(title::main_window, "push button 'Reload'");
    EXPECT_TRUE(comes_true([&] { return cameras->requests() > requests; }));
    close_window();
    expect_good_end();
    EXPECT_TRUE(comes_true([&] { return is_gone(hanging); }));

    start({"Harbour"});
    const pid_t left = decoder();
    ::kill(left, SIGSTOP);
    program.kill();
    ASSERT_TRUE(program.waitForFinished());
    EXPECT_TRUE(comes_true([&] { return is_gone(left); }));
    start({"Harbour"});
}

} // namespace
} // namespace lookfar::driven
