#include "splash/about_window.h"
#include "splash/splash_window.h"
#include "support/machine.h"

#include <gtest/gtest.h>

namespace lookfar::testing {
namespace {

TEST(Splash, RunsItsTextFromTheFirstLetterAndCentresItFromTheSecondTickOn) {
    Machine machine;
    machine.program.start();
    SplashWindow& form = *machine.program.Loading;
    machine.platform.run_for(milliseconds(100));
    EXPECT_EQ(form.Label2.Caption.get(), "Loading...  Loading...  Loading...  ");
    EXPECT_EQ(form.Label2.Left, 4800.0F / 2 - 735.0F / 2) << "the size of the tick before";
    EXPECT_EQ(form.Line1.X2 - form.Line1.X1, 735);
    machine.platform.run_for(milliseconds(100));
    EXPECT_EQ(form.Label2.Caption.get(), "oading...  Loading...  Loading...  L");
    EXPECT_EQ(form.Label2.Left, 2400 - form.Label2.Width / 2);
    EXPECT_EQ(form.Line2.X1, form.Label2.Left);
    EXPECT_EQ(form.Line2.X2, form.Label2.Left + form.Label2.Width);
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
        const std::variant<Bytes, Failure> outcome =
            answers ? std::variant<Bytes, Failure>(picture_file(32, 24)) : Failure(7, "refused");
        machine.set_answer('a', outcome, seconds(5));
        machine.program.start();
        SplashWindow& form = *machine.program.Loading;
        machine.platform.run_for(milliseconds(990));
        EXPECT_TRUE(form.Visible);
        EXPECT_FALSE(machine.Form1.is_loaded() || machine.Form2.is_loaded());
        form.request_close(); // Some window managers ask for what there is no box for.
        EXPECT_TRUE(form.Visible);
        std::string text;
        machine.platform.after(seconds(3), [&] {
            EXPECT_TRUE(form.Visible && form.Timer1.Enabled && form.Timer2.Enabled);
            EXPECT_FALSE(machine.Form1->Visible);
            EXPECT_TRUE(machine.Form1->Image1.Visible);
            machine.Form1->Left = 300;
            machine.Form1->Top = 200;
            text = form.Label2.Caption;
        });
        machine.platform.after(milliseconds(3100),
                               [&] { EXPECT_NE(form.Label2.Caption.get(), text); });
        machine.platform.run_for(seconds(6));
        EXPECT_FALSE(text.empty());
        EXPECT_FALSE(form.Visible || form.Timer1.Enabled || form.Timer2.Enabled);
        EXPECT_TRUE(machine.Form1->Visible);
        EXPECT_EQ(machine.Form1->Left, 0);
        EXPECT_EQ(machine.Form1->Top, 0);
        EXPECT_EQ(machine.Form1->Label2.Visible, !answers);
        EXPECT_LT(std::stoi(form.Label1.Caption), 0) << "it ticks on, with no second hand-over";
        EXPECT_TRUE(machine.platform.untrapped.empty());
    }
}

TEST(About, OpensFromTheMenuAndTurnsItsLinksPurpleUntilItIsUnloaded) {
    Machine machine;
    machine.start();
    Window<AboutWindow>& About = machine.program.About;
    EXPECT_FALSE(About.is_loaded());
    machine.Form1->LKF_About.Click.raise();
    EXPECT_TRUE(About->Visible && machine.Form1->Visible);
    AboutWindow* const first = &*About;
    About->Label6.Click.raise();
    About->Label10.Click.raise();
    EXPECT_EQ(machine.platform.links, (std::vector<std::string>{"http://www.lookfar.example",
                                                                "mailto:mail@lookfar.example"}));
    EXPECT_EQ(About->Label6.ForeColor, 0x00800080U);
    EXPECT_EQ(About->Label10.ForeColor, 0x00800080U);

    About->Command1.Click.raise();
    EXPECT_FALSE(About->Visible);
    EXPECT_EQ(machine.platform.brought_forward.back(), &*machine.Form1);
    machine.Form1->LKF_About.Click.raise();
    EXPECT_EQ(&*About, first) << "no second window";
    EXPECT_EQ(About->Label6.ForeColor, 0x00800080U);

    About->request_close();
    EXPECT_FALSE(About.is_loaded());
    machine.Form1->LKF_About.Click.raise();
    EXPECT_EQ(About->Label6.ForeColor, 0x00800000U);
}

} // namespace
} // namespace lookfar::testing
