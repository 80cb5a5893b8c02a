#include "support/machine.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace lookfar::testing {
namespace {

constexpr std::chrono::milliseconds noon = std::chrono::hours(12);

TEST(Refresh, ComesAtItsIntervalAndOnDemandWithoutMovingTheInterval) {
    Machine machine;
    machine.start();
    EXPECT_EQ(machine.platform.requests.size(), 1U);
    machine.platform.after(seconds(5), [&] { machine.Form1->ImgReload.Click.raise(); });
    machine.platform.run_for(milliseconds(9000));
    EXPECT_EQ(machine.platform.requests.size(), 2U);
    machine.platform.run_for(milliseconds(1200));
    EXPECT_EQ(machine.platform.requests.size(), 3U) << "ten seconds after the window was loaded";
}

TEST(Refresh, WritesTitleStatusLineAndUrlBeforeTheFetch) {
    Machine machine(2);
    machine.platform.set_time_of_day(noon);
    machine.start();
    machine.Form2->Label7.Caption = "3";
    machine.platform.set_time_of_day(noon + seconds(61));
    machine.platform.after(milliseconds(1), [&] {
        EXPECT_EQ(machine.Form2->Label1.Caption.get(), "b");
        EXPECT_EQ(machine.Form2->Label5.Caption.get(), "b");
        EXPECT_EQ(machine.Form2->Label4.Caption.get(), "Screenshot taken: 12:01:01 ( 3 Sec/Pic )");
        EXPECT_EQ(machine.Form1->Text3.Text.get(), Machine::url_of('b'));
        EXPECT_TRUE(machine.Form2->Image2.Visible);
    });
    machine.pick(1);
    EXPECT_EQ(machine.Form2->Label4.Caption.get(), "Screenshot taken: 12:01:01 ( 0 Sec/Pic )");
    EXPECT_FALSE(machine.Form2->Image2.Visible);
    EXPECT_EQ(machine.Form2->Label8.Caption.get(), "0");
}

TEST(Refresh, TakesTheLineBehindTheLastMatchWhoseverLineItIs) {
    Machine machine;
    machine.start();
    const struct {
        const char* list;
        const char* url;
    } cases[] = {
        {"a\r\nfirst\r\nb\r\nub\r\na\r\nlast\r\n", "last"},
        {"x\r\na\r\nafter a URL line\r\n", "after a URL line"},
        {"A\r\nother case\r\n", "after a URL line"},
        {"a\r\n\r\nz\r\n", ""},
    };
    for (const auto& [list, url] : cases) {
        write_file("Cams.inf", list);
        machine.Form1->Command2.Click.raise();
        EXPECT_EQ(machine.platform.requests.back(), url);
    }
}

TEST(Refresh, EndsSilentlyWhenTheListCantBeReadAndTheNextOneTriesAgain) {
    Machine machine;
    machine.start();
    const auto requests = machine.platform.requests.size();
    for (const char* list : {"", "a"}) {
        write_file("Cams.inf", list);
        machine.Form1->Command2.Click.raise();
    }
    std::filesystem::remove("Cams.inf");
    machine.Form1->Command2.Click.raise();
    EXPECT_EQ(machine.platform.requests.size(), requests);
    EXPECT_FALSE(machine.Form1->Label2.Visible);
    EXPECT_TRUE(machine.Form2->Image2.Visible);
    EXPECT_FALSE(exists("Cams.inf"));

    write_file("Cams.inf", "a\r\n" + Machine::url_of('a') + "\r\n");
    machine.Form1->Command2.Click.raise();
    EXPECT_EQ(machine.platform.requests.size(), requests + 1);
    EXPECT_FALSE(machine.Form2->Image2.Visible);
}

TEST(Refresh, InsideARunningFetchIsTurnedAwayAndTakesTheErrorDisplayDown) {
    Machine machine(2);
    machine.start();
    machine.set_answer('a', Failure(7, "refused"));
    machine.pick(0);
    machine.set_answer('a', picture_file(64, 48), seconds(20));
    machine.platform.run_for(seconds(1));
    ASSERT_TRUE(machine.Form1->Label2.Visible);
    const auto requests = machine.platform.requests.size();
    machine.platform.after(seconds(5), [&] {
        machine.Form2->Combo1.ListIndex = 1;
        machine.Form2->Label2.Visible = true;
        machine.Form1->Command2.Click.raise();
        EXPECT_FALSE(machine.Form1->Label2.Visible || machine.Form1->Label3.Visible);
        EXPECT_FALSE(machine.Form2->Label2.Visible || machine.Form2->Label3.Visible);
        EXPECT_FALSE(machine.Form2->Timer2.Enabled);
        EXPECT_TRUE(machine.Form1->ImagNT1.Visible && machine.Form2->Image3.Visible);
        EXPECT_EQ(machine.Form1->MousePointer, MousePointer::standard);
        EXPECT_EQ(machine.Form1->Text3.Text.get(), Machine::url_of('b'));
        EXPECT_EQ(machine.Form2->Label7.Caption.get(), "0");
    });
    machine.Form1->Command2.Click.raise();
    EXPECT_EQ(machine.platform.requests.size(), requests + 1);
    EXPECT_EQ(machine.Form1->ImagNT1.Picture.get()->width(), 64)
        << "the running fetch delivers the camera that it was started for";
    EXPECT_EQ(machine.Form2->Label7.Caption.get(), "20");
}

TEST(Refresh, ThatComesBeforeTheTransferStartsFetchesThePictureTwice) {
    Machine machine;
    machine.start();
    const auto requests = machine.platform.requests.size();
    machine.platform.post([&] { machine.Form1->Command2.Click.raise(); });
    machine.Form1->Command2.Click.raise();
    EXPECT_EQ(machine.platform.requests.size(), requests + 2);

    machine.Form1->Timer1.Interval = 5000;
    machine.platform.after(seconds(5), [&] { machine.Form1->Command2.Click.raise(); });
    machine.platform.run_for(seconds(5));
    EXPECT_EQ(machine.platform.requests.size(), requests + 4) << "a tick that is due by then too";
}

TEST(Refresh, LetsTheTicksOfEveryTimerComeWhileASlowCameraIsFetched) {
    Machine machine(2);
    machine.start();
    machine.set_answer('b', picture_file(32, 24), milliseconds(59500));
    machine.Form1->Text2.Text = "1";
    int refreshes = 0;
    int rotations = 0;
    int watches = 0;
    int hand_overs = 0;
    machine.Form1->Timer1.Tick.connect([&] { ++refreshes; });
    machine.Form1->Timer2.Tick.connect([&] { ++rotations; });
    machine.Form2->Timer1.Tick.connect([&] { ++watches; });
    machine.Form2->Timer4.Tick.connect([&] { ++hand_overs; });
    machine.platform.after(seconds(30), [&] {
        machine.Form1->Check1.Value = 1;
        EXPECT_GE(hand_overs, 3);
    });
    machine.pick(1);
    EXPECT_EQ(refreshes, 5);
    EXPECT_EQ(rotations, 29);
    EXPECT_EQ(watches, 59);
    EXPECT_EQ(machine.Form1->ImagNT1.Picture.get()->width(), 32);
    EXPECT_TRUE(machine.platform.untrapped.empty());
}

} // namespace
} // namespace lookfar::testing
