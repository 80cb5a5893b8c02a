#include "support/started.h"

namespace lookfar::testing {
namespace {

using Selection = Started<3>;
using IntervalInputs = Started<1>;
using PictureMenu = Started<1>;
using Shutdown = Started<1>;

TEST_F(Selection, TravelsBetweenTheSelectorsByIndexAndFetchesNothing) {
    const auto requests = platform.requests.size();
    for (const short index : std::initializer_list<short>{2, 0, 1}) {
        Form1->Combo1.ListIndex = index;
        EXPECT_EQ(Form2->Combo1.ListIndex, index);
        EXPECT_EQ(Form2->Label4.Caption.get(), "Loading '" + Form1->Combo1.Text + "' ...");
    }
    Form2->Combo1.Text = "c";
    EXPECT_EQ(Form1->Combo1.Text.get(), "c");
    EXPECT_EQ(platform.requests.size(), requests);
}

TEST(Rotation, NeverDrawsTheCameraInViewAndDrawsAllOthers) {
    for (const int cameras : {2, 4}) {
        Machine machine(cameras);
        machine.start();
        machine.Form1->Text2.Text = "1";
        machine.Form1->Check1.Value = 1;
        std::set<std::string> drawn;
        std::string last;
        for (int hop = 0; hop < 100; ++hop) {
            last = machine.Form2->Combo1.Text;
            machine.platform.run_for(seconds(1));
            EXPECT_NE(machine.Form2->Combo1.Text.get(), last);
            EXPECT_EQ(machine.Form1->Combo1.Text.get(), machine.Form2->Combo1.Text.get());
            drawn.insert(machine.Form2->Combo1.Text);
        }
        EXPECT_EQ(static_cast<int>(drawn.size()), cameras);
        machine.Form1->Check1.Value = 0;
        last = machine.Form2->Combo1.Text;
        machine.platform.run_for(seconds(10));
        EXPECT_EQ(machine.Form2->Combo1.Text.get(), last);
    }
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

TEST_F(IntervalInputs, EndAsTheyMustWhateverIsTyped) {
    const struct {
        const char* typed;
        const char* refresh;
        long refresh_interval;
        const char* rotation;
        long rotation_interval;
    } cases[] = {
        {"1", "1", 1000, "1", 1000},       {"60", "60", 60000, "60", 60000},
        {"61", "61", 61000, "60", 60000},  {"65", "65", 65000, "60", 60000},
        {"66", "60", 60000, "60", 60000},  {"0", "1", 1000, "1", 1000},
        {"", "1", 1000, "1", 1000},        {"7x", "1", 1000, "60", 60000},
        {"-5", "1", 1000, "1", 1000},      {".5", ".5", 500, "1", 1000},
        {"1e9", "60", 60000, "60", 60000}, {"1e999", "60", 60000, "60", 60000},
        {"60x", "1", 1000, "60", 60000},   {"\xFF\n\n", "1", 1000, "1", 1000},
    };
    for (const auto& [typed, refresh, refresh_interval, rotation, rotation_interval] : cases) {
        for (TextBox* box : {&Form1->Text1, &Form1->Text2}) {
            box->Text = "10";
            box->Text = typed;
        }
        EXPECT_EQ(Form1->Text1.Text.get(), refresh) << typed;
        EXPECT_EQ(Form1->Timer1.Interval, refresh_interval) << typed;
        EXPECT_EQ(Form1->Text2.Text.get(), rotation) << typed;
        EXPECT_EQ(Form1->Timer2.Interval, rotation_interval) << typed;
    }
}

TEST_F(IntervalInputs, StepByTheArrowKeysBetweenOneAndSixty) {
    const struct {
        const char* before;
        KeyCode key;
        const char* after;
    } cases[] = {{"10", KeyCode::up, "11"}, {"10", KeyCode::down, "9"}, {"60", KeyCode::up, "60"},
                 {"59", KeyCode::up, "60"}, {"1", KeyCode::down, "1"},  {"2", KeyCode::down, "1"},
                 {"10", KeyCode{65}, "10"}};
    for (TextBox* box : {&Form1->Text1, &Form1->Text2}) {
        for (const auto& [before, key, after] : cases) {
            box->Text = before;
            box->KeyDown.raise(key, 0);
            EXPECT_EQ(box->Text.get(), after);
        }
    }
    Form1->Text1.Text = "65";
    Form1->Text1.KeyDown.raise(KeyCode::up, 0);
    EXPECT_EQ(Form1->Text1.Text.get(), "65");
    Form1->Text1.KeyDown.raise(KeyCode::down, 0);
    EXPECT_EQ(Form1->Text1.Text.get(), "64");
}

TEST_F(IntervalInputs, FollowTheArrowsWhichKeepAValueOfTheirOwn) {
    Form1->Text1.Text = "30";
    Form1->UpDown1.step(+1);
    EXPECT_EQ(Form1->Text1.Text.get(), "11");
    EXPECT_EQ(Form1->Timer1.Interval, 11000);
    Form1->Text1.SelStart = 1;
    Form1->Text1.GotFocus.raise();
    EXPECT_EQ(Form1->Text1.SelStart, 0);
    EXPECT_EQ(Form1->Text1.SelLength, 2);
}

TEST_F(PictureMenu, OpensOnTheRightButtonAndOnTheMenuKey) {
    for (const MouseButton button : {MouseButton::left, MouseButton::middle, MouseButton::right}) {
        EXPECT_TRUE(platform.menus.empty());
        Form1->Label4.MouseDown.raise(button);
    }
    Form1->ImagNT1.MouseDown.raise(MouseButton::right);
    Form1->MenuKey.raise();
    EXPECT_EQ(platform.menus.size(), 3U);
    EXPECT_EQ(platform.default_menu_entry, &Form1->GoToFull);
}

TEST_F(Shutdown, DeletesThePictureFileAndEndsOnTheSpot) {
    ASSERT_TRUE(exists("data.dat"));
    EXPECT_THROW(Form1->request_close(), ProgramEnded);
    EXPECT_FALSE(exists("data.dat") || Form1->Visible);
    EXPECT_THROW(Form1->request_close(), ProgramEnded) << "without the file too";
}

} // namespace
} // namespace lookfar::testing
