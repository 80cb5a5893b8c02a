#include "support/started.h"

namespace lookfar::testing {
namespace {

/// Two cameras, the first one selected and fetched.
struct Refresh : Started<2> {
    Refresh() {
        pick(0);
        platform.requests.clear();
    }
};

TEST_F(Refresh, ComesAtItsIntervalAndOnDemandWithoutMovingTheInterval) {
    platform.after(seconds(5), [&] { Form1->ImgReload.Click.raise(); });
    platform.run_for(milliseconds(9000));
    EXPECT_EQ(platform.requests.size(), 1U);
    platform.run_for(milliseconds(1200));
    EXPECT_EQ(platform.requests.size(), 2U) << "ten seconds after the window was loaded";
}

TEST_F(Refresh, WritesTitleStatusLineAndUrlBeforeTheFetch) {
    Form2->Label7.Caption = "3";
    platform.set_time_of_day(std::chrono::hours(12) + seconds(61));
    platform.after(milliseconds(1), [&] {
        EXPECT_EQ(Form2->Label1.Caption.get(), "b");
        EXPECT_EQ(Form2->Label5.Caption.get(), "b");
        EXPECT_EQ(Form2->Label4.Caption.get(), "Screenshot taken: 12:01:01 ( 3 Sec/Pic )");
        EXPECT_EQ(Form1->Text3.Text.get(), url_of('b'));
        EXPECT_TRUE(Form1->Image1.Visible && Form2->Image2.Visible);
        EXPECT_EQ(Form1->MousePointer, MousePointer::hourglass);
        // As a refresh does that is refused.
        Form2->Label1.Caption = "a";
    });
    pick(1);
    for (const Image* image : {&Form1->ImagNT1, &Form2->Image3})
        EXPECT_EQ(image->AccessibleName.get(), "Camera picture: b");
    EXPECT_EQ(Form2->Label4.Caption.get(), "Screenshot taken: 12:01:01 ( 0 Sec/Pic )");
    EXPECT_FALSE(Form2->Image2.Visible);
    EXPECT_EQ(Form2->Label8.Caption.get(), "0");
}

TEST_F(Refresh, TakesTheLineBehindTheLastMatchWhoseverLineItIs) {
    const std::pair<const char*, const char*> cases[] = {
        {"a\r\nfirst\r\nb\r\nub\r\na\r\nlast\r\n", "last"},
        {"x\r\na\r\nafter a URL line\r\n", "after a URL line"},
        {"A\r\nother case\r\n", "after a URL line"},
        {"a\r\n\r\nz\r\n", ""},
    };
    for (const auto& [list, url] : cases) {
        write_file("Cams.inf", list);
        refresh();
        EXPECT_EQ(platform.requests.back(), url);
    }
}

TEST_F(Refresh, EndsSilentlyWhenTheListCantBeReadAndTheNextOneTriesAgain) {
    for (const char* list : {"", "a"}) {
        write_file("Cams.inf", list);
        refresh();
    }
    std::filesystem::remove("Cams.inf");
    refresh();
    EXPECT_TRUE(platform.requests.empty());
    expect_error_display(false);
    EXPECT_TRUE(Form2->Image2.Visible);
    EXPECT_FALSE(exists("Cams.inf"));

    write_file("Cams.inf", "a\r\n" + url_of('a') + "\r\n");
    refresh();
    EXPECT_EQ(platform.requests.size(), 1U);
    EXPECT_FALSE(Form2->Image2.Visible);
}

TEST_F(Refresh, InsideARunningFetchIsTurnedAwayAndTakesTheErrorDisplayDown) {
    refresh_with(Failure(7, "refused"));
    platform.run_for(seconds(1));
    expect_error_display(true);
    platform.after(milliseconds(5250), [&] {
        Form2->Combo1.ListIndex = 1;
        Form2->Label2.Visible = true;
        refresh();
        expect_error_display(false);
        EXPECT_EQ(Form1->MousePointer, MousePointer::standard);
        EXPECT_EQ(Form1->Text3.Text.get(), url_of('b'));
        EXPECT_EQ(Form2->Label7.Caption.get(), "0");
    });
    refresh_with(picture_file(64, 48), seconds(20));
    EXPECT_EQ(platform.requests, std::vector<std::string>(2, url_of('a')))
        << "the running fetch delivers the camera that it was started for";
    EXPECT_EQ(Form1->ImagNT1.Picture.get()->width(), 64);
    EXPECT_EQ(Form2->Label7.Caption.get(), "20");
}

TEST_F(Refresh, ThatComesBeforeTheTransferStartsFetchesThePictureTwice) {
    platform.after({}, [&] { refresh(); });
    refresh();
    EXPECT_EQ(platform.requests.size(), 2U);

    Form1->Timer1.Interval = 5000;
    platform.after(seconds(5), [&] { refresh(); });
    platform.after(seconds(5), [&] { Form1->Combo1.ListIndex = 1; });
    platform.run_for(seconds(5));
    const char cameras[] = {'a', 'a', 'b', 'a'};
    EXPECT_TRUE(std::ranges::equal(platform.requests, cameras, {}, {}, &url_of))
        << "a tick that is due by then too, behind what the user has done";
}

TEST_F(Refresh, NestsToASmallDepthOnlyHoweverManyArePending) {
    int pending = 20'000;
    for (int count = pending; count > 0; --count)
        platform.after({}, [&] {
            --pending;
            refresh();
        });
    refresh();
    EXPECT_EQ(pending, 0);
    EXPECT_GT(platform.requests.size(), 2U) << "an inner fetch runs whole before its outer one";
    EXPECT_LT(platform.requests.size(), 10U);
}

TEST_F(Refresh, AsksAndLetsItselfBeEndedThoughTheListTakesLongerToReadThanTheInterval) {
    constexpr milliseconds slow(1200);
    platform.faulty_disk.before = [&](const std::string& operation) {
        if (operation == "open-read Cams.inf")
            platform.pass(slow);
    };
    Form1->Timer1.Interval = 1000;
    platform.after(seconds(30), [&] { Form1->request_close(); });
    EXPECT_THROW(platform.run_for(seconds(30) + slow), ProgramEnded);
    EXPECT_GT(platform.requests.size(), 2U);
}

} // namespace
} // namespace lookfar::testing
