#include "support/started.h"

#include <array>

namespace lookfar::testing {
namespace {

/// On a screen of 15360 by 11520 twips.
struct Fullscreen : Started<2> {
    void enter() { Form1->GoToFull.Click.raise(); }
    void leave() { Form2->Image3.DblClick.raise(); }
    /// The left edges of the control panel's oval, bar, selector and arrow.
    std::array<float, 4> panel() {
        return {Form2->Shape1.Left, Form2->Shape2.Left, Form2->Combo1.Left, Form2->Command1.Left};
    }
    void expect_panel(bool is_open) {
        EXPECT_EQ(panel(), (is_open ? std::array{10477.5F, 11145.0F, 11205.0F, 10717.5F}
                                    : std::array{14692.5F, 15360.0F, 15360.0F, 14932.5F}));
        EXPECT_EQ(Form2->Command1.Caption.get(), is_open ? "4" : "3");
        EXPECT_EQ(Form2->Shape1.DrawMode, is_open ? DrawMode::copy_pen : DrawMode::merge_pen);
        EXPECT_EQ(Form2->Line1.Visible, is_open);
        EXPECT_TRUE(Form2->Command1.Visible && Form2->Combo1.Visible);
        EXPECT_TRUE(Form2->Shape1.Visible && Form2->Shape2.Visible);
    }
    /// Of the rows of the test card that a label stands on. There is some room around it, since a
    /// desktop's letters are higher than the scripted ones.
    int darkest_byte_behind(const Label& label) {
        constexpr float room = 150;
        const Picture& card = *Form2->TestBild.Picture.get();
        const float rows_per_twip = static_cast<float>(card.height()) / Form2->Height;
        const auto first = static_cast<std::size_t>((label.Top - room) * rows_per_twip);
        const auto last =
            static_cast<std::size_t>((label.Top + label.Height + room) * rows_per_twip);
        const auto stride = static_cast<std::size_t>(card.stride());
        return std::ranges::min(card.bytes().subspan(first * stride, (last + 1 - first) * stride));
    }
    void expect_arrow(Colour text, Colour ground) {
        EXPECT_EQ(Form2->Command1.ForeColor, text);
        EXPECT_EQ(Form2->Command1.BackColor, ground);
    }
};

TEST_F(Fullscreen, IsLaidOutFromTheStartAndMovesWithItsEdges) {
    FullscreenWindow& form = *Form2;
    form.TestBild.Left = 7;
    form.TestBild.Top = 7;
    form.Combo1.ListIndex = 1;
    form.Label5.Caption = "";
    // Nothing is clamped, and a layout leaves nothing behind to the next one.
    for (const auto& [x, y] : {Size{42240, 20880}, Size{-15060, -11370}, Size{0, 0}}) {
        platform.metrics.size = {15360 + x, 11520 + y};
        Form1->ScreenChange.raise();
        EXPECT_EQ(form.TestBild.bounds(), (Bounds{0, 0, 15360 + x, 11520 + y}));
        EXPECT_EQ(form.Shape3.bounds(), (Bounds{13905 + x, 10185 + y, 1095, 975}));
        EXPECT_EQ(form.Shape4.bounds(), (Bounds{480, 10185 + y, 14050 + x, 555}));
        EXPECT_EQ(form.Shape6.bounds(), (Bounds{480, 10725 + y, 14050 + x, 450}));
        EXPECT_EQ(form.Shape5.bounds(), (Bounds{480, 10185 + y, 14050 + x, 1005}));
        EXPECT_EQ(form.Label5.Top, 10200 + y);
        EXPECT_EQ(form.Label4.Top, 10785 + y);
        EXPECT_EQ(form.Image2.bounds(), (Bounds{14085 + x, 10305 + y, 720, 720}));
        EXPECT_EQ(panel(), (std::array{10477.5F + x, 11145 + x, 11205 + x, 10717.5F + x}));
        EXPECT_EQ(form.Line1.X1, 11145 + x);
        EXPECT_EQ(form.Line1.X2, 15360 + x);
        EXPECT_EQ(form.Line1.Y1, 480);
        EXPECT_EQ(form.Label5.Caption.get(), "b");
        const Bounds fitted = form.Image3.bounds();
        const Picture& picture = *form.Image3.Picture.get();
        refresh_with(picture_file(picture.width(), picture.height()));
        EXPECT_EQ(form.Image3.bounds(), fitted);
    }
}

TEST_F(Fullscreen, SwapsTheWindowsByEveryWayInAndEveryWayOut) {
    const std::function<void()> ways_in[] = {[&] { Form1->ImagNT1.DblClick.raise(); },
                                             [&] { Form1->Label4.DblClick.raise(); },
                                             [&] { Form1->GoToFull.Click.raise(); },
                                             [&] { Form1->WindowState = WindowState::maximised; }};
    FullscreenWindow* const first = &*Form2;
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
            EXPECT_EQ(platform.brought_forward.back(), &*Form1);
        }
    }
    EXPECT_EQ(&*Form2, first) << "no way out unloads it";
}

TEST_F(Fullscreen, CentresTheErrorLinesWithTheSizeOfTheirCaptions) {
    Form2->Label2.Width = 2805;
    Form2->Label2.Height = 765;
    Form2->Label3.Width = 1665;
    Form2->Label3.Height = 345;
    enter();
    EXPECT_EQ(Form2->Label2.bounds(), (Bounds{6277.5F, 4912.5F, 2805, 765}));
    EXPECT_EQ(Form2->Label3.bounds(), (Bounds{6847.5F, 5827.5F, 1665, 345}));
}

TEST_F(Fullscreen, ShowsAnErrorOnALightAndQuietFieldOfTheTestCardOnEveryScreen) {
    const Failure failure(7, "Failed to connect to 127.0.0.1 port 8194 after 0 ms: No connection");
    for (const auto& [width, height] :
         {Size{800, 600}, Size{1024, 768}, Size{1280, 720}, Size{1280, 800}, Size{1920, 1080},
          Size{2560, 1080}, Size{3840, 2160}, Size{720, 1280}, Size{1080, 1920}}) {
        platform.metrics.size = {width * twips_per_pixel, height * twips_per_pixel};
        enter();
        refresh_with(failure);
        // The lines stand where the last texts were centred until the window is entered again.
        for (int entry = 0; entry < 2; ++entry) {
            for (const Label* label : {&Form2->Label2, &Form2->Label3})
                EXPECT_GE(darkest_byte_behind(*label), 230) << label->Caption.get() << height;
            leave();
            enter();
        }
        leave();
        refresh_with(picture_file(16, 16));
    }
}

TEST_F(Fullscreen, OpensAndClosesThePanelOnTheArrowAndFindsItAsItWasLeft) {
    enter();
    expect_panel(true);
    Form2->Command1.MouseMove.raise();
    expect_arrow(colour::white, colour::black);
    Form2->Command1.Click.raise();
    expect_panel(false);
    expect_arrow(colour::black, colour::white); // A closing click rests the arrow.
    leave();
    Form2->Width = 15000;
    enter();
    expect_panel(false);
    Form2->apply_state(WindowState::minimised);
    Form2->apply_state(WindowState::normal);
    expect_panel(false);
    for (const float width : {30000.0F, 15360.0F}) {
        platform.metrics.size.Width = width;
        Form2->ScreenChange.raise();
        EXPECT_EQ(Form2->Label2.Left, width / 2 - Form2->Label2.Width / 2);
    }
    expect_panel(false);

    Form2->Command1.MouseMove.raise();
    Form2->Command1.Click.raise();
    expect_panel(true);
    expect_arrow(colour::white, colour::black); // An opening one leaves its look.
    for (Image* image : {&Form2->Image3, &Form2->TestBild}) {
        Form2->Command1.MouseMove.raise();
        image->MouseMove.raise();
        expect_arrow(colour::black, colour::white);
    }
}

TEST_F(Fullscreen, DrawsAnotherColourAtEveryEntryAndAllFourInTheEnd) {
    const Colour bright[] = {0, 0x000000FF, 0x0000FF00, 0x00FF0000, 0x0000FFFF};
    const Colour dark[] = {0, 0x000000C0, 0x0000C000, 0x00C00000, 0x0000C0C0};
    std::set<std::string> drawn;
    std::string last = "0";
    for (int entry = 0; entry < 60; ++entry) {
        platform.run_for(milliseconds(1300));
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
    EXPECT_TRUE(platform.menus.empty());
}

} // namespace
} // namespace lookfar::testing
