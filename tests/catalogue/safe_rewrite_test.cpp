#include "support/machine.h"

#include <gtest/gtest.h>

#include <functional>

namespace lookfar::testing {
namespace {

/// Thrown where the process is killed: nothing catches it, nothing is tidied up.
struct Killed {};

const std::string old_list = "a\r\n" + Machine::url_of('a') + "\r\nb\r\n" + Machine::url_of('b') +
                             "\r\nc\r\n" + Machine::url_of('c') + "\r\n";

struct Change {
    const char* name;
    std::function<void(Machine&)> make;
    std::string new_list;
};

const Change changes[] = {
    {"a save",
     [](Machine& machine) {
         machine.Form3->Command1.Click.raise();
         machine.Form4->Text1.Text = "d";
         machine.Form4->Text2.Text = "ud";
         machine.Form4->Command1.Click.raise();
     },
     old_list + "d\r\nud\r\n"},
    {"a removal",
     [](Machine& machine) {
         machine.platform.box_answers.emplace_back([] { return MessageBoxAnswer::yes; });
         machine.Form3->Command2.Click.raise();
     },
     "b\r\n" + Machine::url_of('b') + "\r\nc\r\n" + Machine::url_of('c') + "\r\n"},
};

/// A started machine with the list window open on the first camera.
struct OpenedMachine : Machine {
    OpenedMachine() : Machine(3) {
        start();
        pick(0);
        Form1->Command1.Click.raise();
    }
    /// Makes a change; `before` comes before each file operation, which it is told counted.
    void make(const Change& change, const std::function<void(std::size_t)>& before) {
        std::size_t count = 0;
        platform.faulty_disk.before = [&](const std::string&) { before(count++); };
        program.runtime.deliver([&] { change.make(*this); });
        platform.faulty_disk.mend();
    }
};

/// The list as a new start finds it in the folder.
std::string list_after_restart() {
    ScriptedPlatform platform;
    Program program(platform);
    program.start();
    platform.run_for(std::chrono::seconds(1));
    EXPECT_GE(program.Form3->List1.ListCount(), 2);
    EXPECT_EQ(program.Form1->Combo1.ListCount(), program.Form3->List1.ListCount());
    return content_of("Cams.inf");
}

TEST(SafeRewrite, LeavesAWholeListWhereverTheProcessIsKilled) {
    for (const Change& change : changes) {
        std::size_t operations = 0;
        OpenedMachine().make(change, [&](std::size_t) { ++operations; });
        ASSERT_GE(operations, 8U);
        for (std::size_t killed = 0; killed < operations; ++killed) {
            OpenedMachine machine;
            // What an unwinding process would tidy up, a killed one does not: the new start
            // comes before.
            std::string list;
            const auto kill = [&](std::size_t operation) {
                if (operation != killed)
                    return;
                list = list_after_restart();
                throw Killed{};
            };
            EXPECT_THROW(machine.make(change, kill), Killed);
            EXPECT_TRUE(list == old_list || list == change.new_list)
                << change.name << ", killed at operation " << killed << ": " << list;
        }
    }
}

} // namespace
} // namespace lookfar::testing
