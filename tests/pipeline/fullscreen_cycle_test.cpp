#include "pipeline/blur.h"
#include "support/started.h"

namespace lookfar::testing {
namespace {

std::vector<std::uint8_t> bytes_of(const Image& image) {
    const auto bytes = image.Picture.get()->bytes();
    return {bytes.begin(), bytes.end()};
}

/// A started program whose cameras answer with detail that a filter changes.
struct Pipeline : Started<2> {
    Bytes answer = detailed_jpeg(64, 48);
    std::vector<std::uint8_t> raw;

    Pipeline() {
        refresh_with(answer);
        raw = bytes_of(Form1->ImagNT1);
    }
    std::vector<std::uint8_t> filtered(int times) const {
        auto bytes = raw;
        for (int pass = 0; pass < times; ++pass)
            blur(bytes, bytes, 48, 192);
        return bytes;
    }
    void let_run(milliseconds duration = milliseconds(50)) { platform.run_for(duration); }
    void expect_one_picture() {
        EXPECT_EQ(Form1->ImagNT1.Picture.get(), Form2->Picture1.Picture.get());
        EXPECT_EQ(Form2->Image3.Picture.get(), Form2->Picture1.Picture.get());
    }
    void select_the_other_camera() {
        Form1->Combo1.ListIndex = static_cast<short>(1 - Form1->Combo1.ListIndex);
    }
};

TEST_F(Pipeline, FiltersEachPictureOnceAndHandsOneObjectToBothWindows) {
    let_run();
    EXPECT_EQ(bytes_of(Form1->ImagNT1), filtered(1));
    expect_one_picture();
    EXPECT_EQ(Form2->Label8.Caption.get(), "1");
    EXPECT_EQ(Form1->StatusBar1.Text.get(), Form2->Label4.Caption.get());
    let_run(seconds(5));
    EXPECT_EQ(bytes_of(Form1->ImagNT1), filtered(1));
}

TEST_F(Pipeline, LeavesThePictureAloneWithTheBlurOffAndBringsNothingBack) {
    Form1->Check2.Value = 0;
    let_run();
    EXPECT_EQ(bytes_of(Form1->ImagNT1), raw);
    expect_one_picture();
    EXPECT_EQ(Form2->Label8.Caption.get(), "0");
    for (const short ticked : std::initializer_list<short>{1, 0}) {
        Form1->Check2.Value = ticked;
        let_run();
    }
    EXPECT_EQ(bytes_of(Form2->Image3), filtered(1));
}

TEST_F(Pipeline, SmoothsOnceASecondWhileASelectionWaitsForItsRefresh) {
    let_run(milliseconds(500));
    select_the_other_camera();
    Form1->GoToFull.Click.raise(); // The title that is shown, but not yet looked up, changes here.
    let_run(milliseconds(3000));
    EXPECT_EQ(bytes_of(Form1->ImagNT1), filtered(4));
    EXPECT_FALSE(exists("data.dat"));
    refresh();
    let_run(milliseconds(3000));
    EXPECT_EQ(bytes_of(Form1->ImagNT1), filtered(1));
}

TEST_F(Pipeline, LeavesUrlsWithTheThreeLettersAlone) {
    const std::pair<const char*, bool> cases[] = {{"http://cameras.example/gift.jpg", true},
                                                  {"http://GIFs.example/a.jpg", true},
                                                  {"http://cameras.example/a.jpg?x=gIf", true},
                                                  {"http://cameras.example/gi.f", false},
                                                  {"gi", false}};
    for (const auto& [url, is_left_alone] : cases) {
        let_run();
        platform.cameras[url] = {.outcome = answer};
        write_file("Cams.inf", "a\r\n" + std::string(url) + "\r\n");
        Form1->Combo1.ListIndex = 0;
        refresh();
        const std::string line = Form1->StatusBar1.Text;
        Form2->Label4.Caption = url;
        let_run();
        EXPECT_EQ(bytes_of(Form1->ImagNT1) == raw, is_left_alone) << url;
        EXPECT_EQ(Form1->StatusBar1.Text == line, is_left_alone) << url;
    }
}

TEST_F(Pipeline, ShowsTheTestCardAndBlinksAfterAFailureUntilAFetchSucceeds) {
    let_run();
    refresh_with(Failure(7, "refused"));
    EXPECT_FALSE(Form2->Label2.Visible);
    // The cycle sets these anew, whoever has changed them meanwhile.
    Form2->Image3.Visible = true;
    Form2->Label8.Caption = "1";
    let_run();
    EXPECT_TRUE(Form2->TestBild.Visible);
    EXPECT_FALSE(Form2->Image3.Visible || Form2->Timer4.Enabled);
    EXPECT_EQ(Form2->Label8.Caption.get(), "0");
    const std::string line = Form1->StatusBar1.Text;
    bool shown = false;
    for (int blink = 0; blink < 6; ++blink) {
        let_run(milliseconds(500));
        EXPECT_NE(Form2->Label2.Visible, shown);
        shown = Form2->Label2.Visible;
    }
    select_the_other_camera();
    let_run(milliseconds(1500));
    EXPECT_EQ(bytes_of(Form1->ImagNT1), filtered(1)) << "no picture changes in the failure state";
    EXPECT_EQ(Form1->StatusBar1.Text.get(), line);

    refresh_with(answer);
    Form2->Image3.Visible = false;
    let_run();
    expect_error_display(false);
    EXPECT_FALSE(Form2->TestBild.Visible);
    EXPECT_EQ(bytes_of(Form1->ImagNT1), filtered(1));
}

TEST_F(Pipeline, SleepsAtRestBetweenItsDeadlines) {
    Form1->Text1.Text = "60";
    for (const short blurs : std::initializer_list<short>{1, 0}) {
        Form1->Check2.Value = blurs;
        let_run(seconds(2));
        const int before = platform.wake_ups;
        let_run(seconds(50));
        EXPECT_LE(platform.wake_ups - before, 55) << "one a second";
    }
}

TEST(ColourDepthGate, WarnsOnceOnAPoorScreenAndAgainWheneverTheBoxIsTicked) {
    using Boxes = std::vector<std::string>;
    const std::string warning =
        "16 Color Depth Error: Your actual color depth is less than 32bit. The Blur-Effect, which "
        "smoothers the Skyglass picture, can't be applied and will be switched off.";
    const std::string information =
        "64 Blur Effect Information: The Blur-Effect may not apply as it should be, because of "
        "your actual colour depth!";
    for (const short depth : std::initializer_list<short>{16, 24, 32, 48}) {
        const bool is_poor = depth < 32;
        Machine machine;
        machine.platform.metrics.bits_per_pixel = depth;
        machine.start();
        EXPECT_EQ(machine.platform.boxes, is_poor ? Boxes{warning} : Boxes{}) << depth;
        EXPECT_EQ(machine.Form1->Check2.Value, is_poor ? 0 : 1) << depth;
        EXPECT_EQ(machine.Form1->BlurEffect.Caption.get(), is_poor ? "0" : "1") << depth;
        machine.Form1->Check2.Value = 0;
        machine.Form1->Check2.Value = 1;
        EXPECT_EQ(machine.platform.boxes, is_poor ? Boxes({warning, information}) : Boxes{});
        machine.platform.run_for(seconds(1));
        EXPECT_EQ(machine.Form2->Label8.Caption.get(), "1") << "ticked, it filters on any screen";
    }
}

} // namespace
} // namespace lookfar::testing
