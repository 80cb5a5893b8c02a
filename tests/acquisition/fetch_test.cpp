#include "support/failure_of.h"
#include "support/started.h"

#include <tuple>

namespace lookfar::testing {
namespace {

using Fetch = Started<1>;

/// The size and place of a picture that is as large as it fits whole into an area, and centred.
Bounds fitted(Size picture, const Bounds& area) {
    const float ratio = std::min(area.Width / picture.Width, area.Height / picture.Height);
    const Size size{picture.Width * ratio, picture.Height * ratio};
    return {area.Width / 2 - size.Width / 2 + area.Left,
            area.Height / 2 - size.Height / 2 + area.Top, size.Width, size.Height};
}

TEST_F(Fetch, FitsThePictureWholeAndCentredIntoBothWindows) {
    const std::pair<int, int> sizes[] = {{321, 241}, {640, 160}, {120, 480},
                                         {3, 4},     {331, 253}, {1920, 1440}};
    for (const auto& [width, height] : sizes) {
        refresh_with(picture_file(width, height, 0x336699, "png"));
        const Size size{static_cast<float>(width * 15), static_cast<float>(height * 15)};
        EXPECT_EQ(Form1->ImagNT1.bounds(), fitted(size, {60, 120, 4815, 3615})) << width;
        EXPECT_EQ(Form2->Image3.bounds(), fitted(size, {0, 0, 15360, 11520})) << width;
        EXPECT_TRUE(Form1->ImagNT1.Stretch && Form2->Image3.Stretch);
    }
    EXPECT_EQ(Form1->ImagNT1.bounds(), (Bounds{60, 121.875F, 4815, 3611.25F}));
}

TEST_F(Fetch, WritesTheAnswerOverTheOldOneWithoutShorteningIt) {
    const Bytes large = detailed_jpeg(500, 400);
    refresh_with(large);
    refresh_with(picture_file(16, 16));
    EXPECT_EQ(content_of("data.dat").size(), large.size());
    EXPECT_EQ(Form1->ImagNT1.Picture.get()->width(), 16);
}

TEST_F(Fetch, ThatFailsShowsNumberAndTextInBothWindowsUntilOneSucceeds) {
    const auto picture = Form1->ImagNT1.Picture.get();
    const Bytes whole = detailed_jpeg(64, 48);
    const Bytes half(whole.begin(), whole.begin() + static_cast<long>(whole.size() / 2));
    const struct {
        Answer outcome;
        std::string number;
        std::string text;
    } cases[] = {
        {Failure(7, "Connection refused"), "Error #7 ", "Connection refused"},
        {Failure(-5, "negative"), "Error #5 ", "negative"},
        {Bytes{'<', 'p', '>'}, "Error #481 ", "The camera's answer is not a picture."},
        {Bytes(), "Error #35765 ", "The camera's answer holds no bytes."},
        {half, "Error #481 ", "The picture ends too early."},
    };
    platform.announced.clear();
    for (const auto& [outcome, number, text] : cases) {
        refresh_with(outcome, milliseconds(2500));
        expect_error_display(true);
        for (const Label* label : {&Form1->Label2, &Form2->Label2})
            EXPECT_EQ(label->Caption.get(), number);
        for (const Label* label : {&Form1->Label3, &Form2->Label3})
            EXPECT_EQ(label->Caption.get(), text);
        EXPECT_TRUE(Form1->Image1.Visible && Form2->Image2.Visible);
        EXPECT_EQ(Form1->ImagNT1.Picture.get(), picture) << "the old picture is kept";
        EXPECT_EQ(Form2->Picture1.Picture.get(), picture);
        EXPECT_EQ(Form2->Label7.Caption.get(), "2") << "halves go to the even neighbour";
        EXPECT_EQ(Form1->MousePointer, MousePointer::standard);
        EXPECT_TRUE(platform.announced.empty());
        Form2->Picture1.Picture = nullptr;
    }
    Form2->Label2.Visible = true;
    refresh_with(whole);
    expect_error_display(false);
    EXPECT_EQ(platform.announced, std::vector{Form2->Label4.Caption.get()});
    EXPECT_FALSE(Form1->Image1.Visible || Form2->Image2.Visible);
}

TEST_F(Fetch, WithoutRoomOnTheDiskSaysSoAndLeavesNoFileOpen) {
    for (const char* operation : {"open-overwrite data.dat", "write data.dat", "read data.dat"}) {
        platform.faulty_disk.fail(operation, ENOSPC);
        refresh();
        expect_error_display(true);
        EXPECT_EQ(Form1->Label2.Caption.get(), "Error #" + std::to_string(ENOSPC) + " ");
        platform.faulty_disk.mend();
        refresh();
        expect_error_display(false);
    }
}

TEST_F(Fetch, ShowsNoPictureOfAnotherProgramInTheSameFolder) {
    const Bytes theirs = detailed_jpeg(64, 48);
    const std::function<void()> works[] = {
        [&] { write_file("data.dat", {theirs.begin(), theirs.end()}); },
        [] { std::filesystem::remove("data.dat"); },
        [] { write_file("data.dat", ""); },
    };
    const std::pair<int, int> disturbed[] = {{1, 1}, {1, 99}, {2, 2}, {2, 99}, {3, 3}, {3, 99}};
    for (const auto& work : works) {
        for (const auto& [first, last] : disturbed) {
            int reads = 0;
            platform.faulty_disk.before = [&](const std::string& operation) {
                reads += operation == "open-read data.dat" ? 1 : 0;
                if (reads >= first && reads <= last)
                    work();
            };
            refresh_with(picture_file(32, 24));
            platform.faulty_disk.mend();
            EXPECT_GT(reads, 3);
            expect_error_display(last > first);
            for (const auto* image : {&Form1->ImagNT1, &Form2->Image3})
                EXPECT_NE(image->Picture.get()->width(), 64);
            EXPECT_NE(Form2->Picture1.Picture.get()->width(), 64);
        }
    }
}

TEST_F(Fetch, ReportsTheDifferenceWhereverTheClockIsSetAndAcrossMidnight) {
    using std::chrono::hours;
    const std::tuple<seconds, seconds, std::string> cases[] = {
        {hours(24) - seconds(3), hours(24) - seconds(2), "00:00:04 ( 7 Sec/Pic )"},
        {hours(12), hours(1), "01:00:06 (-32768 Sec/Pic )"},
        {hours(12), hours(11), "11:00:06 (-3594 Sec/Pic )"},
        {hours(12), hours(23), "23:00:06 ( 32767 Sec/Pic )"}};
    for (const auto& [before, after, status] : cases) {
        platform.set_time_of_day(before);
        platform.after(seconds(1), [&, set = after] { platform.set_time_of_day(set); });
        refresh_with(picture_file(32, 24), seconds(7));
        EXPECT_EQ(Form2->Label4.Caption.get(), "Screenshot taken: " + status);
    }
}

TEST_F(Fetch, OfATextGivesTheBodyOrShowsTheFailure) {
    platform.cameras["page"] = {.outcome = Bytes{'t', 'e', 'x', 't'}};
    EXPECT_TRUE(platform.is_proxy_asked);
    EXPECT_EQ(Form1->GetHTML("page"), "text");
    EXPECT_FALSE(platform.is_proxy_asked);
    EXPECT_EQ(Form1->GetHTML("nowhere"), "");
    EXPECT_FALSE(Form2->Image3.Visible || Form2->Label3.Visible) << "the text comes with a blink";
    platform.run_for(milliseconds(500));
    expect_error_display(true);
    EXPECT_EQ(Form1->Label2.Caption.get(), "Error #6 ");
    EXPECT_EQ(Form2->Label3.Caption.get(), "Could not resolve host");
}

TEST_F(Fetch, FailsWhereItTakesTooLongOrComesSecondOrIsCancelled) {
    platform.cameras = {{"good", {.outcome = Bytes{7}}},
                        {"slow", {.outcome = Bytes{7}, .after = milliseconds(2001)}}};
    Inet& Inet1 = Form1->Inet1;
    Inet1.RequestTimeout = 2;
    const auto number_of = [&](const std::string& url) {
        const auto failure = failure_of([&] { Inet1.OpenURL(url, DataType::icByteArray); });
        return failure ? failure->Number : 0;
    };
    EXPECT_EQ(number_of("slow"), 28) << "the whole wait is bounded by the time-out";
    platform.after(milliseconds(50), [&] {
        EXPECT_EQ(number_of("good"), 35764) << "only one at a time";
        Inet1.Cancel();
    });
    EXPECT_EQ(number_of("good"), 35766);
    EXPECT_EQ(platform.abandoned_transfers, 1);
    EXPECT_EQ(number_of("good"), 0);
}

} // namespace
} // namespace lookfar::testing
