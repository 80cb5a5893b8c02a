#include "support/machine.h"

#include <gtest/gtest.h>

#include <set>

namespace lookfar::testing {
namespace {

TEST(Selection, TravelsBetweenTheSelectorsByIndexAndFetchesNothing) {
    Machine machine(3);
    machine.start();
    const auto requests = machine.platform.requests.size();
    for (const short index : std::initializer_list<short>{2, 0, 1}) {
        machine.Form1->Combo1.ListIndex = index;
        EXPECT_EQ(machine.Form2->Combo1.ListIndex, index);
        EXPECT_EQ(machine.Form2->Label4.Caption.get(),
                  "Loading '" + machine.Form1->Combo1.Text + "' ...");
    }
    machine.Form2->Combo1.Text = "c";
    EXPECT_EQ(machine.Form1->Combo1.Text.get(), "c");
    EXPECT_EQ(machine.platform.requests.size(), requests);
}

TEST(Rotation, NeverDrawsTheCameraInViewAndDrawsAllOthers) {
    Machine machine(4);
    machine.start();
    machine.Form1->Text2.Text = "1";
    machine.Form1->Check1.Value = 1;
    std::set<std::string> drawn;
    for (int hop = 0; hop < 100; ++hop) {
        const std::string before = machine.Form2->Combo1.Text;
        machine.platform.run_for(seconds(1));
        EXPECT_NE(machine.Form2->Combo1.Text.get(), before);
        EXPECT_EQ(machine.Form1->Combo1.Text.get(), machine.Form2->Combo1.Text.get());
        drawn.insert(machine.Form2->Combo1.Text);
    }
    EXPECT_EQ(drawn.size(), 4U);
    machine.Form1->Check1.Value = 0;
    const std::string last = machine.Form2->Combo1.Text;
    machine.platform.run_for(seconds(10));
    EXPECT_EQ(machine.Form2->Combo1.Text.get(), last);
}

TEST(Rotation, WithFewerThanTwoCamerasStaysWhereItIs) {
    for (const int cameras : {0, 1}) {
        Machine machine(cameras);
        if (cameras == 0)
            write_file("Cams.inf", "\r\n");
        machine.start();
        machine.Form1->Check1.Value = 1;
        machine.platform.run_for(seconds(200));
        EXPECT_EQ(machine.Form1->Combo1.ListIndex, cameras - 1);
        EXPECT_TRUE(machine.platform.untrapped.empty());
    }
}

TEST(IntervalInputs, EndAsTheyMustWhateverIsTyped) {
    const struct {
        const char* typed;
        const char* refresh;
        long refresh_interval;
        const char* rotation;
        long rotation_interval;
    } cases[] = {
        {"1", "1", 1000, "1", 1000},         {"60", "60", 60000, "60", 60000},
        {"5", "5", 5000, "5", 5000},         {"61", "61", 61000, "60", 60000},
        {"65", "65", 65000, "60", 60000},    {"66", "60", 60000, "60", 60000},
        {"99", "60", 60000, "60", 60000},    {"0", "1", 1000, "1", 1000},
        {"00", "1", 1000, "1", 1000},        {"", "1", 1000, "1", 1000},
        {"x", "1", 1000, "1", 1000},         {"-", "1", 1000, "1", 1000},
        {"7x", "1", 1000, "60", 60000},      {"-5", "1", 1000, "1", 1000},
        {".5", ".5", 500, "1", 1000},        {"1e9", "60", 60000, "60", 60000},
        {"1e999", "60", 60000, "60", 60000}, {"\xFF\n\n", "1", 1000, "1", 1000},
    };
    Machine machine;
    machine.start();
    for (const auto& [typed, refresh, refresh_interval, rotation, rotation_interval] : cases) {
        machine.Form1->Text1.Text = "10";
        machine.Form1->Text2.Text = "10";
        machine.Form1->Text1.Text = typed;
        machine.Form1->Text2.Text = typed;
        EXPECT_EQ(machine.Form1->Text1.Text.get(), refresh) << typed;
        EXPECT_EQ(machine.Form1->Timer1.Interval, refresh_interval) << typed;
        EXPECT_EQ(machine.Form1->Text2.Text.get(), rotation) << typed;
        EXPECT_EQ(machine.Form1->Timer2.Interval, rotation_interval) << typed;
    }
}

TEST(IntervalInputs, StepByTheArrowKeysBetweenOneAndSixty) {
    Machine machine;
    machine.start();
    const struct {
        const char* before;
        KeyCode key;
        const char* after;
    } cases[] = {{"10", KeyCode::up, "11"}, {"10", KeyCode::down, "9"}, {"60", KeyCode::up, "60"},
                 {"59", KeyCode::up, "60"}, {"1", KeyCode::down, "1"},  {"2", KeyCode::down, "1"},
                 {"10", KeyCode{65}, "10"}};
    for (TextBox* box : {&machine.Form1->Text1, &machine.Form1->Text2}) {
        for (const auto& [before, key, after] : cases) {
            box->Text = before;
            box->KeyDown.raise(key, 0);
            EXPECT_EQ(box->Text.get(), after);
        }
    }
    machine.Form1->Text1.Text = "65";
    machine.Form1->Text1.KeyDown.raise(KeyCode::up, 0);
    EXPECT_EQ(machine.Form1->Text1.Text.get(), "65");
    machine.Form1->Text1.KeyDown.raise(KeyCode::down, 0);
    EXPECT_EQ(machine.Form1->Text1.Text.get(), "64");
}

TEST(IntervalInputs, FollowTheArrowsWhichKeepAValueOfTheirOwn) {
    Machine machine;
    machine.start();
    machine.Form1->Text1.Text = "30";
    machine.Form1->UpDown1.step(+1);
    EXPECT_EQ(machine.Form1->Text1.Text.get(), "11");
    EXPECT_EQ(machine.Form1->Timer1.Interval, 11000);
    machine.Form1->Text1.GotFocus.raise();
    EXPECT_EQ(machine.Form1->Text1.SelStart, 0);
    EXPECT_EQ(machine.Form1->Text1.SelLength, 2);
}

TEST(PopupMenu, OpensOnTheRightButtonOverThePicture) {
    Machine machine;
    machine.start();
    for (const MouseButton button : {MouseButton::left, MouseButton::middle})
        machine.Form1->Label4.MouseDown.raise(button);
    EXPECT_TRUE(machine.platform.menus.empty());
    machine.Form1->Label4.MouseDown.raise(MouseButton::right);
    ASSERT_EQ(machine.platform.menus.size(), 1U);
    EXPECT_EQ(machine.platform.default_menu_entry, &machine.Form1->GoToFull);
}

TEST(Shutdown, DeletesThePictureFileAndEndsOnTheSpot) {
    Machine machine;
    machine.start();
    ASSERT_TRUE(exists("data.dat"));
    EXPECT_THROW(machine.Form1->request_close(), ProgramEnded);
    EXPECT_FALSE(exists("data.dat"));
    EXPECT_FALSE(machine.Form1->Visible);
    EXPECT_THROW(machine.Form1->request_close(), ProgramEnded) << "without the file too";
}

TEST(Shutdown, DoesNotWaitForAFetch) {
    Machine machine;
    machine.start();
    machine.set_answer('a', picture_file(32, 24), seconds(50));
    machine.platform.after(seconds(1), [&] { machine.Form1->request_close(); });
    const Instant before = machine.platform.now();
    EXPECT_THROW(machine.Form1->Command2.Click.raise(), ProgramEnded);
    EXPECT_EQ(machine.platform.now() - before, seconds(1));
    EXPECT_EQ(machine.platform.abandoned_transfers, 1);
}

} // namespace
} // namespace lookfar::testing
