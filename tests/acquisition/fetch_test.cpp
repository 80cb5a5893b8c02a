#include "support/machine.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <utility>

namespace lookfar::testing {
namespace {

/// The size and place of a picture that is as large as it fits whole into an area, and centred.
Bounds fitted(Size picture, const Bounds& area) {
    const float ratio = std::min(area.Width / picture.Width, area.Height / picture.Height);
    const Size size{picture.Width * ratio, picture.Height * ratio};
    return {area.Width / 2 - size.Width / 2 + area.Left,
            area.Height / 2 - size.Height / 2 + area.Top, size.Width, size.Height};
}

TEST(Fetch, FitsThePictureWholeAndCentredIntoBothWindows) {
    const std::pair<int, int> sizes[] = {{321, 241}, {640, 160}, {120, 480},
                                         {3, 4},     {331, 253}, {1920, 1440}};
    Machine machine;
    machine.start();
    for (const auto& [width, height] : sizes) {
        machine.set_answer('a', picture_file(width, height, 0x336699, "png"));
        machine.Form1->Command2.Click.raise();
        const Size size{static_cast<float>(width * 15), static_cast<float>(height * 15)};
        EXPECT_EQ(machine.Form1->ImagNT1.bounds(), fitted(size, {60, 120, 4815, 3615})) << width;
        EXPECT_EQ(machine.Form2->Image3.bounds(), fitted(size, {0, 0, 15360, 11520})) << width;
        EXPECT_EQ(machine.Form2->Image3.Picture.get()->width(), width);
        EXPECT_TRUE(machine.Form1->ImagNT1.Stretch && machine.Form2->Image3.Stretch);
    }
    EXPECT_EQ(machine.Form1->ImagNT1.bounds(), (Bounds{60, 121.875F, 4815, 3611.25F}));
}

TEST(Fetch, GivesEveryControlAPictureObjectOfItsOwn) {
    Machine machine;
    machine.start();
    EXPECT_NE(machine.Form2->Picture1.Picture.get(), machine.Form1->ImagNT1.Picture.get());
    EXPECT_NE(machine.Form2->Picture1.Picture.get(), machine.Form2->Image3.Picture.get());
    EXPECT_NE(machine.Form1->ImagNT1.Picture.get(), machine.Form2->Image3.Picture.get());
}

TEST(Fetch, WritesTheAnswerOverTheOldOneWithoutShorteningIt) {
    Machine machine;
    const Bytes large = detailed_jpeg(200, 200);
    const Bytes small = picture_file(16, 16);
    machine.set_answer('a', large);
    machine.start();
    machine.set_answer('a', small);
    machine.Form1->Command2.Click.raise();
    EXPECT_EQ(content_of("data.dat").size(), large.size());
    EXPECT_EQ(machine.Form1->ImagNT1.Picture.get()->width(), 16);
}

TEST(Fetch, ThatFailsShowsNumberAndTextInBothWindowsUntilOneSucceeds) {
    Machine machine;
    machine.start();
    const auto picture = machine.Form1->ImagNT1.Picture.get();
    const Bytes page{'<', 'h', 't', 'm', 'l', '>'};
    const Bytes whole = detailed_jpeg(64, 48);
    const Bytes half(whole.begin(), whole.begin() + static_cast<long>(whole.size() / 2));
    const struct {
        std::variant<Bytes, Failure> outcome;
        std::string number;
        std::string text;
    } cases[] = {
        {Failure(7, "Connection refused"), "Error #7 ", "Connection refused"},
        {Failure(-5, "negative"), "Error #5 ", "negative"},
        {page, "Error #481 ", "The camera's answer is not a picture."},
        {Bytes(), "Error #35765 ", "The camera's answer holds no bytes."},
        {half, "Error #481 ", "The picture ends too early."},
    };
    for (const auto& [outcome, number, text] : cases) {
        machine.set_answer('a', outcome, milliseconds(2500));
        machine.Form1->Command2.Click.raise();
        EXPECT_EQ(machine.Form1->Label2.Caption.get(), number);
        EXPECT_EQ(machine.Form1->Label3.Caption.get(), text);
        EXPECT_EQ(machine.Form2->Label2.Caption.get(), number);
        EXPECT_EQ(machine.Form2->Label3.Caption.get(), text);
        EXPECT_TRUE(machine.Form1->Label2.Visible && machine.Form1->Label3.Visible);
        EXPECT_TRUE(machine.Form2->Label3.Visible && machine.Form2->Timer2.Enabled);
        EXPECT_FALSE(machine.Form1->ImagNT1.Visible || machine.Form2->Image3.Visible);
        EXPECT_TRUE(machine.Form1->Image1.Visible && machine.Form2->Image2.Visible);
        EXPECT_EQ(machine.Form1->ImagNT1.Picture.get(), picture) << "the old picture is kept";
        EXPECT_EQ(machine.Form2->Picture1.Picture.get(), picture);
        EXPECT_EQ(machine.Form2->Label7.Caption.get(), "2") << "halves go to the even neighbour";
        EXPECT_EQ(machine.Form1->MousePointer, MousePointer::standard);
    }
    machine.set_answer('a', picture_file(32, 24));
    machine.Form1->Command2.Click.raise();
    EXPECT_FALSE(machine.Form1->Label2.Visible || machine.Form1->Label3.Visible);
    EXPECT_FALSE(machine.Form2->Label2.Visible || machine.Form2->Label3.Visible);
    EXPECT_FALSE(machine.Form2->Timer2.Enabled || machine.Form1->Image1.Visible);
    EXPECT_TRUE(machine.Form1->ImagNT1.Visible && machine.Form2->Image3.Visible);
}

TEST(Fetch, WithoutRoomOnTheDiskSaysSoAndLeavesNoFileOpen) {
    Machine machine;
    machine.start();
    for (const char* operation : {"open-overwrite data.dat", "write data.dat", "read data.dat"}) {
        machine.platform.faulty_disk.fail(operation, ENOSPC);
        machine.Form1->Command2.Click.raise();
        EXPECT_TRUE(machine.Form1->Label2.Visible) << operation;
        EXPECT_EQ(machine.Form1->Label2.Caption.get(), "Error #" + std::to_string(ENOSPC) + " ");
        machine.platform.faulty_disk.mend();
        machine.Form1->Command2.Click.raise();
        EXPECT_FALSE(machine.Form1->Label2.Visible) << operation;
    }
}

TEST(Fetch, AcrossMidnightReportsTheSecondsThatPassed) {
    Machine machine;
    machine.start();
    machine.platform.set_time_of_day(std::chrono::hours(24) - seconds(3));
    machine.set_answer('a', picture_file(32, 24), seconds(7));
    machine.Form1->Command2.Click.raise();
    EXPECT_EQ(machine.Form2->Label7.Caption.get(), "7");
    EXPECT_EQ(machine.Form2->Label4.Caption.get(), "Screenshot taken: 00:00:04 ( 7 Sec/Pic )");
}

TEST(Fetch, OfATextGivesTheBodyOrShowsTheFailure) {
    Machine machine;
    machine.start();
    machine.platform.cameras["page"] = {.outcome = Bytes{'t', 'e', 'x', 't'}};
    EXPECT_EQ(machine.Form1->GetHTML("page"), "text");
    EXPECT_EQ(machine.Form1->GetHTML("nowhere"), "");
    EXPECT_TRUE(machine.Form1->Label2.Visible);
    EXPECT_TRUE(machine.Form2->Timer2.Enabled);
    EXPECT_FALSE(machine.Form2->Label3.Visible);
}

} // namespace
} // namespace lookfar::testing
