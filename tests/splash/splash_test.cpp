#include "splash/splash_window.h"

#include "splash/about_window.h"
#include "support/started.h"

namespace lookfar::testing {
namespace {

using About = Started<1>;

TEST(Splash, RunsItsTextFromTheFirstLetterAndCentresItFromTheSecondTickOn) {
    Machine machine;
    machine.program.start();
    SplashWindow& form = *machine.program.Loading;
    float width = 735; // The size of the tick before, at first that of the design.
    for (const char* text :
         {"Loading...  Loading...  Loading...  ", "oading...  Loading...  Loading...  L"}) {
        machine.platform.run_for(milliseconds(100));
        EXPECT_EQ(form.Label2.Caption.get(), text);
        EXPECT_EQ(form.Label2.Left, 4800.0F / 2 - width / 2);
        for (const Line* line : {&form.Line1, &form.Line2}) {
            EXPECT_EQ(line->X1, form.Label2.Left);
            EXPECT_EQ(line->X2, form.Label2.Left + width);
        }
        width = form.Label2.Width;
    }
    machine.Form1->Left = 3; // The main window is loaded early, so that the text runs on.
    for (const char* position : {"12", "1"}) {
        while (form.Pos1.Caption.get() != position)
            form.Timer2.Tick.raise();
        EXPECT_EQ(form.Label2.Caption.get().front(), position[1] == '2' ? ' ' : 'L');
    }
}

TEST(Splash, StaysForASecondAndForAsLongAsTheFirstFetchTakes) {
    for (const bool answers : {true, false}) {
        Machine machine;
        machine.set_answer('a', answers ? Answer(picture_file(32, 24)) : Failure(7, "refused"),
                           seconds(29));
        machine.program.start();
        SplashWindow& form = *machine.program.Loading;
        machine.platform.run_for(milliseconds(500));
        form.Seen.raise();
        machine.platform.run_for(milliseconds(990));
        EXPECT_FALSE(machine.Form1.is_loaded() || machine.Form2.is_loaded());
        form.request_close(); // Some window managers ask for what there is no box for.
        EXPECT_TRUE(form.Visible);
        std::string text;
        machine.platform.after(seconds(3), [&] {
            EXPECT_TRUE(form.Visible && form.Timer1.Enabled && form.Timer2.Enabled);
            EXPECT_FALSE(machine.Form1->Visible || machine.Form1->ImagNT1.Picture.get());
            EXPECT_TRUE(machine.Form1->Image1.Visible);
            machine.Form1->Left = 300;
            machine.Form1->Top = 200;
            text = form.Label2.Caption;
        });
        machine.platform.after(milliseconds(3100),
                               [&] { EXPECT_NE(form.Label2.Caption.get(), text); });
        machine.platform.run_for(seconds(30));
        EXPECT_FALSE(text.empty());
        EXPECT_FALSE(form.Visible || form.Timer1.Enabled || form.Timer2.Enabled);
        EXPECT_TRUE(machine.Form1->Visible);
        EXPECT_FALSE(machine.Form2->Visible || machine.Form3->Visible);
        EXPECT_EQ(machine.Form1->Left, 0);
        EXPECT_EQ(machine.Form1->Top, 0);
        EXPECT_EQ(machine.Form1->Label2.Visible, !answers);
        EXPECT_LT(std::stoi(form.Label1.Caption), 0) << "it ticks on, with no second hand-over";
        EXPECT_EQ(machine.platform.requests.size(), 1U) << "the ticks of the wait go away";
        EXPECT_TRUE(machine.platform.untrapped.empty());
    }
}

TEST_F(About, OpensFromTheMenuAndTurnsItsLinksPurpleUntilItIsUnloaded) {
    Window<AboutWindow>& window = program.About;
    const auto expect_open = [&](Colour links) {
        Form1->LKF_About.Click.raise();
        EXPECT_TRUE(window->Visible && Form1->Visible);
        EXPECT_EQ(window->Label6.ForeColor, links);
        EXPECT_EQ(window->Label10.ForeColor, links);
    };
    constexpr Colour navy = 0x00800000;
    constexpr Colour purple = 0x00800080;
    EXPECT_FALSE(window.is_loaded());
    expect_open(navy);
    window->Label6.Click.raise();
    window->Label10.Click.raise();
    EXPECT_EQ(platform.links, (std::vector<std::string>{"http://" LOOKFAR_HOMEPAGE,
                                                        "mailto:mail@lookfar.example"}));
    window->Command1.Click.raise();
    EXPECT_FALSE(window->Visible);
    EXPECT_EQ(platform.brought_forward.back(), &*Form1);
    expect_open(purple);
    window->request_close();
    EXPECT_FALSE(window.is_loaded());
    expect_open(navy);
}

} // namespace
} // namespace lookfar::testing
