#include "support/machine.h"

#include <gtest/gtest.h>

#include <functional>
#include <set>

namespace lookfar::testing {
namespace {

/// A started program on a screen of 15360 by 11520 twips.
struct Fullscreen : ::testing::Test {
    Machine machine{2};
    Window<MainWindow>& Form1 = machine.Form1;
    Window<FullscreenWindow>& Form2 = machine.Form2;

    Fullscreen() { machine.start(); }

    void enter() { Form1->GoToFull.Click.raise(); }
    void leave() { Form2->Image3.DblClick.raise(); }
    /// The left edges of the control panel's oval, bar, selector and arrow.
    std::array<float, 4> panel() {
        return {Form2->Shape1.Left, Form2->Shape2.Left, Form2->Combo1.Left, Form2->Command1.Left};
    }
};

constexpr std::array<float, 4> open_panel{10477.5F, 11145, 11205, 10717.5F};
constexpr std::array<float, 4> closed_panel{14692.5F, 15360, 15360, 14932.5F};

TEST_F(Fullscreen, IsLaidOutFromTheStartForTheScreen) {
    FullscreenWindow& form = *Form2;
    EXPECT_EQ(form.TestBild.bounds(), (Bounds{0, 0, 15360, 11520}));
    EXPECT_EQ(form.Shape3.bounds(), (Bounds{13905, 10185, 1095, 975}));
    EXPECT_EQ(form.Shape4.bounds(), (Bounds{480, 10185, 14050, 555}));
    EXPECT_EQ(form.Shape6.bounds(), (Bounds{480, 10725, 14050, 450}));
    EXPECT_EQ(form.Shape5.bounds(), (Bounds{480, 10185, 14050, 1005}));
    EXPECT_EQ(form.Label5.Top, 10200);
    EXPECT_EQ(form.Label4.Top, 10785);
    EXPECT_EQ(form.Image2.bounds(), (Bounds{14085, 10305, 720, 720}));
    EXPECT_EQ(panel(), open_panel);
    EXPECT_EQ(form.Line1.X1, 11145);
    EXPECT_EQ(form.Line1.X2, 15360);
    EXPECT_EQ(form.Line1.Y1, 480);
}

TEST_F(Fullscreen, KeepsItsMarginsAtEverySize) {
    FullscreenWindow& form = *Form2;
    for (const Size size : {Size{57600, 32400}, Size{10800, 28800}, Size{300, 150}}) {
        for (int run = 0; run < 2; ++run) {
            form.Height = size.Height;
            form.Width = size.Width;
            EXPECT_EQ(form.Shape3.Left + form.Shape3.Width, size.Width - 360);
            EXPECT_EQ(form.Shape3.Top + form.Shape3.Height, size.Height - 360);
            EXPECT_EQ(form.Shape6.Left + form.Shape6.Width, form.Shape3.Left + 625);
            EXPECT_EQ(form.Shape6.Top + form.Shape6.Height, size.Height - 345);
            EXPECT_EQ(form.Shape2.Left + form.Shape2.Width, size.Width);
            EXPECT_EQ(form.Combo1.Left + form.Combo1.Width, size.Width - 60);
            EXPECT_EQ(form.TestBild.bounds(), (Bounds{0, 0, size.Width, size.Height}));
        }
    }
    EXPECT_LT(form.Shape1.Left, 0) << "nothing is clamped";
}

TEST_F(Fullscreen, TakesTheTitleOfTheSelectorWithEveryLayout) {
    Form2->Combo1.ListIndex = 1;
    Form2->Width = 15000;
    EXPECT_EQ(Form2->Label5.Caption.get(), "b");
}

TEST_F(Fullscreen, SwapsTheWindowsByEveryWayInAndEveryWayOut) {
    const std::function<void()> ways_in[] = {[&] { Form1->ImagNT1.DblClick.raise(); },
                                             [&] { Form1->Label4.DblClick.raise(); },
                                             [&] { Form1->GoToFull.Click.raise(); }};
    const std::function<void()> ways_out[] = {
        [&] { Form2->Image3.DblClick.raise(); }, [&] { Form2->DblClick.raise(); },
        [&] { Form2->TestBild.DblClick.raise(); }, [&] { Form2->request_close(); }};
    for (const auto& way_in : ways_in) {
        for (const auto& way_out : ways_out) {
            Form2->Left = 300;
            Form2->Top = 200;
            way_in();
            EXPECT_TRUE(Form2->Visible && !Form1->Visible);
            EXPECT_EQ(Form1->WindowState, WindowState::maximised);
            EXPECT_EQ((Bounds{Form2->Left, Form2->Top, Form2->Width, Form2->Height}),
                      (Bounds{0, 0, 15360, 11520}));
            way_out();
            EXPECT_TRUE(Form1->Visible && !Form2->Visible);
            EXPECT_EQ(Form1->WindowState, WindowState::normal);
            EXPECT_EQ(machine.platform.brought_forward.back(), &*Form1);
        }
    }
    EXPECT_TRUE(machine.program.Form2.is_loaded());
}

TEST_F(Fullscreen, CentresTheErrorLinesWithTheSizeOfTheirCaptions) {
    Form2->Label2.Width = 2805;
    Form2->Label2.Height = 765;
    Form2->Label3.Width = 1665;
    Form2->Label3.Height = 345;
    enter();
    EXPECT_EQ(Form2->Label2.Left, 6277.5F);
    EXPECT_EQ(Form2->Label2.Top, 4912.5F);
    EXPECT_EQ(Form2->Label3.Left, 6847.5F);
    EXPECT_EQ(Form2->Label3.Top, 5827.5F);
}

TEST_F(Fullscreen, GoesOnRefreshingBothWindows) {
    enter();
    machine.set_answer('a', picture_file(64, 48));
    machine.set_answer('b', picture_file(64, 48));
    machine.platform.run_for(seconds(11));
    EXPECT_EQ(Form2->Image3.Picture.get()->width(), 64);
    EXPECT_EQ(Form1->ImagNT1.Picture.get(), Form2->Image3.Picture.get());
}

TEST_F(Fullscreen, OpensAndClosesThePanelOnTheArrowAndFindsItAsItWasLeft) {
    enter();
    EXPECT_EQ(panel(), open_panel);
    Form2->Command1.MouseMove.raise();
    EXPECT_EQ(Form2->Command1.ForeColor, colour::white);
    EXPECT_EQ(Form2->Command1.BackColor, colour::black);
    Form2->Command1.Click.raise();
    const auto expect_closed = [&] {
        EXPECT_EQ(panel(), closed_panel);
        EXPECT_EQ(Form2->Command1.Caption.get(), "3");
        EXPECT_EQ(Form2->Shape1.DrawMode, DrawMode::merge_pen);
        EXPECT_FALSE(Form2->Line1.Visible);
    };
    expect_closed();
    EXPECT_EQ(Form2->Command1.ForeColor, colour::black) << "a closing click rests the arrow";
    leave();
    Form2->Width = 15000;
    enter();
    expect_closed();

    Form2->Command1.MouseMove.raise();
    Form2->Command1.Click.raise();
    EXPECT_EQ(panel(), open_panel);
    EXPECT_EQ(Form2->Command1.Caption.get(), "4");
    EXPECT_EQ(Form2->Shape1.DrawMode, DrawMode::copy_pen);
    EXPECT_TRUE(Form2->Line1.Visible && Form2->Command1.Visible && Form2->Combo1.Visible);
    EXPECT_EQ(Form2->Command1.ForeColor, colour::white) << "an opening click leaves the look";
    for (Image* image : {&Form2->Image3, &Form2->TestBild}) {
        Form2->Command1.MouseMove.raise();
        image->MouseMove.raise();
        EXPECT_EQ(Form2->Command1.ForeColor, colour::black);
        EXPECT_EQ(Form2->Command1.BackColor, colour::white);
    }
}

TEST_F(Fullscreen, DrawsAnotherColourAtEveryEntryAndAllFourInTheEnd) {
    const Colour bright[] = {0, 0x000000FF, 0x0000FF00, 0x00FF0000, 0x0000FFFF};
    const Colour dark[] = {0, 0x000000C0, 0x0000C000, 0x00C00000, 0x0000C0C0};
    std::set<std::string> drawn;
    std::string last = "0";
    for (int entry = 0; entry < 60; ++entry) {
        machine.platform.run_for(milliseconds(1300));
        enter();
        const std::string scheme = Form1->Label5.Caption;
        EXPECT_NE(scheme, last);
        last = scheme;
        drawn.insert(scheme);
        const auto number = static_cast<std::size_t>(std::stoi(scheme));
        FullscreenWindow& form = *Form2;
        for (const Colour colour : {form.Shape1.BorderColor.get(), form.Line1.BorderColor.get(),
                                    form.Shape4.FillColor.get(), form.Shape5.BorderColor.get()})
            EXPECT_EQ(colour, bright[number]);
        for (const Colour colour : {form.Shape1.FillColor.get(), form.Shape2.FillColor.get(),
                                    form.Shape3.FillColor.get(), form.Shape3.BorderColor.get(),
                                    form.Shape6.FillColor.get(), form.Combo1.BackColor.get()})
            EXPECT_EQ(colour, dark[number]);
        leave();
        EXPECT_EQ(Form1->Label5.Caption.get(), scheme);
    }
    EXPECT_EQ(drawn, (std::set<std::string>{"1", "2", "3", "4"}));
}

TEST_F(Fullscreen, IgnoresEveryOtherChangeOfTheMainWindow) {
    const std::string scheme = Form1->Label5.Caption;
    Form1->WindowState = WindowState::minimised;
    Form1->WindowState = WindowState::normal;
    Form2->MouseDown.raise(MouseButton::right);
    Form2->Image3.MouseDown.raise(MouseButton::right);
    EXPECT_FALSE(Form2->Visible);
    EXPECT_EQ(Form1->Label5.Caption.get(), scheme);
    EXPECT_TRUE(machine.platform.menus.empty());
}

} // namespace
} // namespace lookfar::testing
