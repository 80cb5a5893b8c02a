#include "pipeline/blur.h"
#include "support/machine.h"

#include <gtest/gtest.h>

#include <vector>

namespace lookfar::testing {
namespace {

std::vector<std::uint8_t> bytes_of(const Image& image) {
    const auto bytes = image.Picture.get()->bytes();
    return {bytes.begin(), bytes.end()};
}

/// A started program whose camera answers with detail that a filter changes.
struct Pipeline : ::testing::Test {
    Machine machine{2};
    Bytes answer = detailed_jpeg(64, 48);
    std::vector<std::uint8_t> raw;
    Window<MainWindow>& Form1 = machine.Form1;
    Window<FullscreenWindow>& Form2 = machine.Form2;

    Pipeline() {
        machine.set_answer('a', answer);
        machine.set_answer('b', answer);
        machine.start();
        raw = bytes_of(Form1->ImagNT1);
    }
    std::vector<std::uint8_t> filtered(int times) const {
        auto bytes = raw;
        for (int pass = 0; pass < times; ++pass)
            blur(bytes, 48, 192);
        return bytes;
    }
    void let_run(milliseconds duration = milliseconds(50)) { machine.platform.run_for(duration); }
};

TEST_F(Pipeline, FiltersEachPictureOnceAndHandsOneObjectToBothWindows) {
    let_run();
    EXPECT_EQ(bytes_of(Form1->ImagNT1), filtered(1));
    EXPECT_EQ(Form1->ImagNT1.Picture.get(), Form2->Image3.Picture.get());
    EXPECT_EQ(Form1->ImagNT1.Picture.get(), Form2->Picture1.Picture.get());
    EXPECT_EQ(Form2->Label8.Caption.get(), "1");
    EXPECT_EQ(Form1->StatusBar1.Text.get(), Form2->Label4.Caption.get());
    let_run(seconds(5));
    EXPECT_EQ(bytes_of(Form1->ImagNT1), filtered(1));
}

TEST_F(Pipeline, LeavesThePictureAloneWithTheBlurOffAndBringsNothingBack) {
    Form1->Check2.Value = 0;
    let_run();
    EXPECT_EQ(bytes_of(Form1->ImagNT1), raw);
    EXPECT_EQ(Form1->ImagNT1.Picture.get(), Form2->Picture1.Picture.get());
    EXPECT_EQ(Form2->Image3.Picture.get(), Form2->Picture1.Picture.get());
    EXPECT_EQ(Form2->Label8.Caption.get(), "0");
    Form1->Check2.Value = 1;
    let_run();
    Form1->Check2.Value = 0;
    let_run();
    EXPECT_EQ(bytes_of(Form2->Image3), filtered(1));
}

TEST_F(Pipeline, SmoothsOnceASecondWhileASelectionWaitsForItsRefresh) {
    let_run(milliseconds(500));
    Form1->Combo1.ListIndex = static_cast<short>(1 - Form1->Combo1.ListIndex);
    Form1->GoToFull.Click.raise(); // The title that is shown, but not yet looked up, changes here.
    let_run(milliseconds(3000));
    EXPECT_EQ(bytes_of(Form1->ImagNT1), filtered(4));
    EXPECT_FALSE(exists("data.dat"));
    Form1->Command2.Click.raise();
    let_run(milliseconds(3000));
    EXPECT_EQ(bytes_of(Form1->ImagNT1), filtered(1));
}

TEST_F(Pipeline, LeavesUrlsWithTheThreeLettersAlone) {
    const struct {
        const char* url;
        bool is_left_alone;
    } cases[] = {{"http://cameras.example/gift.jpg", true},
                 {"http://GIFs.example/a.jpg", true},
                 {"http://cameras.example/a.jpg?x=gIf", true},
                 {"http://cameras.example/gi.f", false},
                 {"gi", false}};
    for (const auto& [url, is_left_alone] : cases) {
        let_run();
        machine.platform.cameras[url] = {.outcome = answer};
        write_file("Cams.inf", "a\r\n" + std::string(url) + "\r\n");
        Form1->Combo1.ListIndex = 0;
        Form1->Command2.Click.raise();
        const std::string line = Form1->StatusBar1.Text;
        Form2->Label4.Caption = url;
        let_run();
        EXPECT_EQ(bytes_of(Form1->ImagNT1) == raw, is_left_alone) << url;
        EXPECT_EQ(Form1->StatusBar1.Text == line, is_left_alone) << url;
    }
}

TEST_F(Pipeline, ShowsTheTestCardAndBlinksAfterAFailureUntilAFetchSucceeds) {
    let_run();
    machine.set_answer('a', Failure(7, "refused"));
    machine.set_answer('b', Failure(7, "refused"));
    Form1->Command2.Click.raise();
    EXPECT_FALSE(Form2->Label2.Visible);
    let_run();
    EXPECT_TRUE(Form2->TestBild.Visible);
    EXPECT_FALSE(Form2->Image3.Visible || Form2->Timer4.Enabled);
    const std::string line = Form1->StatusBar1.Text;
    bool shown = false;
    for (int blink = 0; blink < 6; ++blink) {
        let_run(milliseconds(500));
        EXPECT_NE(Form2->Label2.Visible, shown);
        shown = Form2->Label2.Visible;
    }
    Form1->Combo1.ListIndex = static_cast<short>(1 - Form1->Combo1.ListIndex);
    let_run(milliseconds(1500));
    EXPECT_EQ(bytes_of(Form1->ImagNT1), filtered(1)) << "no picture changes in the failure state";
    EXPECT_EQ(Form1->StatusBar1.Text.get(), line);

    machine.set_answer('a', answer);
    machine.set_answer('b', answer);
    Form1->Command2.Click.raise();
    let_run();
    EXPECT_FALSE(Form2->TestBild.Visible || Form2->Label2.Visible || Form2->Label3.Visible);
    EXPECT_TRUE(Form2->Image3.Visible && Form2->Timer4.Enabled);
    EXPECT_EQ(bytes_of(Form1->ImagNT1), filtered(1));
}

TEST_F(Pipeline, SleepsAtRestBetweenItsDeadlines) {
    Form1->Text1.Text = "60";
    for (const bool blurs : {true, false}) {
        Form1->Check2.Value = blurs ? 1 : 0;
        let_run(seconds(2));
        const int before = machine.platform.wake_ups;
        let_run(seconds(50));
        EXPECT_LE(machine.platform.wake_ups - before, 55) << "one a second";
    }
}

TEST(ColourDepthGate, WarnsOnceOnAPoorScreenAndAgainWheneverTheBoxIsTicked) {
    const struct {
        short depth;
        std::size_t boxes;
        short ticked;
        const char* cell;
    } cases[] = {{32, 0, 1, "1"}, {24, 1, 0, "0"}, {16, 1, 0, "0"}, {48, 0, 1, "1"}};
    for (const auto& [depth, boxes, ticked, cell] : cases) {
        Machine machine;
        machine.platform.metrics.bits_per_pixel = depth;
        machine.start();
        ASSERT_EQ(machine.platform.boxes.size(), boxes) << depth;
        EXPECT_EQ(machine.Form1->Check2.Value, ticked) << depth;
        EXPECT_EQ(machine.Form1->BlurEffect.Caption.get(), cell) << depth;
        machine.Form1->Check2.Value = 0;
        machine.Form1->Check2.Value = 1;
        ASSERT_EQ(machine.platform.boxes.size(), 2 * boxes) << depth;
        if (boxes > 0) {
            EXPECT_EQ(machine.platform.boxes[0].title, "Color Depth Error");
            EXPECT_EQ(machine.platform.boxes[0].text,
                      "Your actual color depth is less than 32bit. The Blur-Effect, which "
                      "smoothers the Skyglass picture, can't be applied and will be switched off.");
            EXPECT_EQ(machine.platform.boxes[0].flags, MessageBoxFlag{16});
            EXPECT_EQ(machine.platform.boxes[1].title, "Blur Effect Information");
            EXPECT_EQ(machine.platform.boxes[1].text,
                      "The Blur-Effect may not apply as it should be, because of your actual "
                      "colour depth!");
            EXPECT_EQ(machine.platform.boxes[1].flags, MessageBoxFlag{64});
        }
        machine.platform.run_for(seconds(1));
        EXPECT_EQ(machine.Form2->Label8.Caption.get(), "1") << "ticked, it filters on any screen";
    }
}

} // namespace
} // namespace lookfar::testing
