#include "support/machine.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <fstream>
#include <ranges>
#include <set>

namespace lookfar::testing {
namespace {

TEST(StartUp, DrawsEveryCamera) {
    std::set<std::string> drawn;
    for (int second = 0; second < 60; ++second) {
        Machine machine(3);
        machine.platform.set_time_of_day(seconds(40000 + second));
        machine.start();
        EXPECT_EQ(machine.Form1->Combo1.ListIndex, machine.Form2->Combo1.ListIndex);
        drawn.insert(machine.Form2->Combo1.Text);
    }
    EXPECT_EQ(drawn, (std::set<std::string>{"a", "b", "c"}));
}

TEST(StartUp, SaysWhyTheListCantBeMadeAndGoesOnWithoutOne) {
    Machine machine(0);
    machine.platform.faulty_disk.fail("open-create-new Cams.inf.", EROFS);
    machine.start();
    machine.platform.run_for(seconds(60));
    EXPECT_TRUE(machine.Form1->Visible && machine.Form1->Label2.Visible);
    EXPECT_EQ(machine.Form1->Label2.Caption.get(), "Error #" + std::to_string(EROFS) + " ");
    EXPECT_EQ(machine.Form1->Combo1.ListCount(), 0);
    EXPECT_TRUE(machine.platform.requests.empty());
}

TEST(StartUp, WithAListOfNoCameraSelectsNothingKeepsTheCellsAndSaysSo) {
    const std::pair<const char*, const char*> cases[] = {
        {"\r\n\r\n", "No camera is selected. Choose one, or add one to the list."},
        {"a\nua\nb\nub\n", "The lines of Cams.inf must end in CR LF."},
        {"\r\na", "'a', the last title in Cams.inf, has no address."}};
    for (const auto& [list, complaint] : cases) {
        Machine machine(0);
        write_file("Cams.inf", list);
        machine.start();
        machine.platform.run_for(seconds(30));
        EXPECT_EQ(machine.Form2->Combo1.ListIndex, -1);
        EXPECT_EQ(machine.Form1->Text3.Text.get(), "Skyglass");
        EXPECT_EQ(machine.Form2->Label1.Caption.get(), "");
        EXPECT_TRUE(machine.Form1->Label3.Visible && machine.Form2->Timer2.Enabled);
        EXPECT_EQ(machine.Form1->Label3.Caption.get(), complaint);
        EXPECT_TRUE(machine.platform.requests.empty());
        EXPECT_EQ(content_of("Cams.inf"), list);
    }
}

TEST(StartUp, SaysWhichTitleAtTheEndOfTheListIsNoCamera) {
    const std::pair<const char*, std::vector<std::string>> cases[] = {
        {"", {}},
        {"b", {"'b', the last title in Cams.inf, has no address."}},
        {"b\nub\n", {"The lines of Cams.inf must end in CR LF."}}};
    for (const auto& [end, complaints] : cases) {
        Machine machine(1);
        std::ofstream("Cams.inf", std::ios::binary | std::ios::app) << end;
        machine.start();
        const auto told = std::views::values(machine.platform.hints);
        EXPECT_EQ(std::vector<std::string>(told.begin(), told.end()), complaints);
        EXPECT_EQ(machine.Form1->Combo1.ListCount(), 1);
        EXPECT_FALSE(machine.Form1->Label3.Visible);
    }
}

TEST(StartUp, TakesTheFirst32767CamerasAndLeavesTheFileAlone) {
    Machine machine(0);
    std::string list;
    for (int camera = 0; camera < 32769; ++camera)
        list += "camera " + std::to_string(camera) + "\r\nhttp://many.example/\r\n";
    write_file("Cams.inf", list);
    machine.start();
    EXPECT_EQ(machine.Form3->List1.ListCount(), 32767);
    EXPECT_EQ(machine.Form2->Combo1.List(32766), machine.Form1->Combo1.List(32766));
    EXPECT_EQ(content_of("Cams.inf"), list);
    EXPECT_EQ(machine.platform.requests.size(), 1U);
}

} // namespace
} // namespace lookfar::testing
