#include "runtime/controls/bars.h"
#include "runtime/controls/buttons.h"
#include "runtime/controls/images.h"
#include "runtime/controls/label.h"
#include "runtime/controls/text_box.h"
#include "runtime/controls/timer.h"
#include "runtime/failure.h"
#include "runtime/window.h"
#include "support/pictures.h"
#include "support/scripted_platform.h"

#include <gtest/gtest.h>

namespace lookfar::testing {
namespace {

struct Sample : Form {
    explicit Sample(Runtime& host) : Form(host, {.Client = {3000, 2000}}) {}

    TextBox Text1{*this, {.Text = "10"}};
    CheckBox Check1{*this, {}};
    UpDown UpDown1{*this, {.Value = 10, .Min = 1, .Max = 12}};
    Label Label1{
        *this,
        {.Caption = "one", .At = {100, 100, 10, 10}, .Sizing = LabelSizing::to_caption_in_window}};
    Label Label2{*this, {.At = {0, 0, 1000, 165}, .Sizing = LabelSizing::downwards}};
    Label Label3{*this, {.At = {100, 100, 10, 10}, .Sizing = LabelSizing::to_caption}};
    Label Label4{*this, {.At = {100, 100, 10, 10}}};
    Label Label5{*this, {.At = {100, 100, 10, 10}, .Sizing = LabelSizing::to_caption_on_one_line}};
    Image Image1{*this, {.At = {10, 20, 300, 400}}};
    Timer Timer1{*this, {.Enabled = false, .Interval = 1000}};
};

struct Properties : ::testing::Test {
    ScriptedPlatform platform;
    Runtime runtime{platform};
    Sample form{runtime};

    PictureReference picture(int width, int height) {
        return std::make_shared<Picture>(decode_pixels(picture_file(width, height)));
    }
};

TEST_F(Properties, RaiseTheirEventInsideTheWriteAndOnlyForAChange) {
    std::string seen;
    form.Text1.Change.connect([&] { seen += form.Text1.Text.get() + ";"; });
    form.Check1.Click.connect([&] { seen += "click;"; });
    form.UpDown1.Change.connect([&] { seen += "step;"; });
    form.Resize.connect([&] { seen += "resize;"; });

    form.Text1.Text = "10";
    form.Check1.Value = 0;
    form.UpDown1.Value = 10;
    form.Width = 3000;
    EXPECT_EQ(seen, "") << "writes of the value that is there";

    form.Text1.Text = "11";
    form.Check1.Value = 1;
    form.UpDown1.Value = 11;
    form.Width = 3001;
    form.Height = 2001;
    form.WindowState = WindowState{2};
    form.Show();
    form.Hide();
    form.Show();
    EXPECT_EQ(seen, "11;click;step;resize;resize;resize;resize;")
        << "the last resize is that of the first display";
}

TEST_F(Properties, KeepTheOldValueWhereTheyRefuseTheNewOne) {
    EXPECT_THROW(form.UpDown1.Value = 13, Failure);
    EXPECT_EQ(form.UpDown1.Value, 10);
    for (const long interval : {-1L, 65536L}) {
        EXPECT_THROW(form.Timer1.Interval = interval, Failure);
        EXPECT_EQ(form.Timer1.Interval, 1000);
    }
    form.Timer1.Interval = 65535;
    EXPECT_EQ(form.Timer1.Interval, 65535);
    for (const int direction : {+1, -1}) {
        for (int press = 0; press < 12; ++press)
            form.UpDown1.step(direction);
        EXPECT_EQ(form.UpDown1.Value, direction > 0 ? 12 : 1) << "steps stop at the limits";
    }
}

TEST_F(Properties, ALabelTakesItsSizeAsItsRuleSays) {
    // A character is 82.5 twips wide, a line is 165 high.
    const struct {
        Label& label;
        std::size_t length = 0;
        Bounds bounds;
        bool wraps = false;
    } cases[] = {
        {form.Label1, 15, {100, 100, 1237.5F, 165}, false},
        {form.Label1, 100, {100, 100, 2900, 3 * 165}, true},
        {form.Label1, 1, {100, 100, 82.5F, 165}, false},
        {form.Label2, 40, {0, 0, 1000, 660}, true},
        {form.Label2, 1, {0, 0, 1000, 165}, true},
        {form.Label3, 100, {100, 100, 8250, 165}, false},
        {form.Label4, 100, {100, 100, 10, 10}, true},
        {form.Label5, 15, {100, 100, 1237.5F, 165}, false},
        {form.Label5, 100, {100, 100, 2000, 165}, false},
    };
    form.Label5.Room = 2000;
    for (const auto& [label, length, bounds, wraps] : cases) {
        label.Caption = std::string(length, 'x');
        EXPECT_EQ(label.bounds(), bounds) << length;
        EXPECT_EQ(label.wraps(), wraps) << length;
        EXPECT_EQ(label.is_shortened(), &label == &form.Label5 && length == 100);
    }
}

TEST_F(Properties, AnImageTakesItsPicturesSizeOnlyWithoutStretch) {
    form.Image1.Picture = picture(32, 16);
    EXPECT_EQ(form.Image1.bounds(), (Bounds{10, 20, 480, 240}));
    form.Image1.Stretch = true;
    form.Image1.Width = 75;
    form.Image1.Picture = picture(8, 8);
    EXPECT_EQ(form.Image1.bounds(), (Bounds{10, 20, 75, 240}));
    form.Image1.Stretch = false;
    EXPECT_EQ(form.Image1.bounds(), (Bounds{10, 20, 120, 120}));
    form.Image1.Picture = nullptr;
    EXPECT_EQ(form.Image1.bounds(), (Bounds{10, 20, 120, 120}));
}

struct Loaded : Form {
    Loaded(Runtime& host, std::string& log) : Form(host, {}), log_(log) {
        log_ += "made;";
        Initialize.connect([this] { log_ += "initialize;"; });
        Load.connect([this] { log_ += "load;"; });
        Unload.connect([this] { log_ += "unload;"; });
    }
    Loaded(const Loaded&) = delete;
    Loaded& operator=(const Loaded&) = delete;
    ~Loaded() override { log_ += "gone;"; }

  private:
    std::string& log_;
};

TEST_F(Properties, AWindowLoadsAtItsFirstUseAndAnewAfterItWasUnloaded) {
    std::string log;
    Window<Loaded> window(runtime, [&] { return std::make_unique<Loaded>(runtime, log); });
    EXPECT_EQ(log, "");
    window->Left = 5;
    window->Left = 6;
    EXPECT_EQ(log, "made;initialize;load;");

    runtime.deliver([&] {
        window->request_close();
        EXPECT_FALSE(window.is_loaded());
        EXPECT_EQ(log, "made;initialize;load;unload;") << "its handlers may still be running";
    });
    EXPECT_EQ(log, "made;initialize;load;unload;gone;");
    EXPECT_EQ(window->Left, 0);
}

TEST_F(Properties, AnUntrappedFailureEndsOnlyItsHandler) {
    runtime.deliver([] { throw Failure(7, "untrapped"); });
    ASSERT_EQ(platform.untrapped.size(), 1U);
    EXPECT_EQ(platform.untrapped[0].Number, 7);
    runtime.deliver([] { throw std::bad_alloc(); });
    EXPECT_EQ(platform.untrapped.size(), 2U);
}

} // namespace
} // namespace lookfar::testing
