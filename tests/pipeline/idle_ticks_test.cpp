#include "support/machine.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace lookfar::testing {
namespace {

/// Everything that the ticks at the next opportunity read or write, as one text.
std::string state_of(Machine& machine) {
    std::string state;
    const auto add = [&state](const std::string& text) { state += text + "|"; };
    const auto add_picture = [&](const PictureReference& picture) {
        if (!picture)
            return add("none");
        const auto bytes = picture->bytes();
        add(std::to_string(std::hash<std::string_view>{}(
            {reinterpret_cast<const char*>(bytes.data()), bytes.size()})));
    };
    add_picture(machine.Form2->Picture1.Picture);
    add_picture(machine.Form2->Image3.Picture);
    add_picture(machine.Form1->ImagNT1.Picture);
    for (const Label* label :
         {&machine.Form2->Label1, &machine.Form2->Label2, &machine.Form2->Label3,
          &machine.Form2->Label4, &machine.Form2->Label7, &machine.Form2->Label8})
        add(label->Caption.get() + (label->Visible ? "+" : "-"));
    for (const bool flag :
         {machine.Form2->Timer2.Enabled.get(), machine.Form2->Timer4.Enabled.get(),
          machine.Form2->Image3.Visible.get(), machine.Form2->TestBild.Visible.get(),
          machine.Form1->ImagNT1.Visible.get(), machine.Form1->Label2.Visible.get()})
        add(flag ? "+" : "-");
    add(machine.Form1->StatusBar1.Text);
    add(machine.Form2->Combo1.Text);
    return state;
}

/// What a user, the cameras and the disk may do, drawn by the history's own random numbers.
class History {
  public:
    explicit History(unsigned seed) : random_(seed) {}

    std::vector<std::string> states(IdleTicks idle_ticks) {
        Machine machine(3, idle_ticks);
        for (const char camera : {'a', 'b', 'c'})
            machine.set_answer(camera, detailed_jpeg(24, 16));
        machine.start();
        std::vector<std::string> states;
        for (int step = 0; step < 60; ++step) {
            act(machine);
            // Everything happens at multiples of five; a look in between never meets a tick that
            // is due at that very instant.
            machine.platform.run_for(milliseconds(2 + 5 * draw(4) * draw(80)));
            states.push_back(state_of(machine));
            machine.platform.run_for(milliseconds(3));
        }
        return states;
    }

  private:
    int draw(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }

    void act(Machine& machine) {
        const char camera = static_cast<char>('a' + draw(3));
        const std::string number = std::to_string(1 + draw(5));
        switch (draw(10)) {
        case 0:
            machine.Form1->Command2.Click.raise();
            break;
        case 1:
            machine.Form1->Combo1.ListIndex = static_cast<short>(draw(3));
            break;
        case 2:
            machine.Form2->Combo1.ListIndex = static_cast<short>(draw(3));
            break;
        case 3:
            machine.Form1->Check2.Value = static_cast<short>(draw(2));
            break;
        case 4:
            machine.Form1->Check1.Value = static_cast<short>(draw(2));
            break;
        case 5:
            machine.set_answer(camera, Failure(7, "refused"), milliseconds(5 * draw(180)));
            break;
        case 6:
        case 7:
            machine.set_answer(camera, detailed_jpeg(16 + 4 * draw(5), 16),
                               milliseconds(5 * draw(600)));
            break;
        case 8:
            machine.Form1->Text1.Text = number;
            break;
        default:
            machine.Form1->Text2.Text = number;
            break;
        }
    }

    std::mt19937 random_;
};

TEST(IdleTicks, HeldBackReachTheSameStatesAsBlindOnes) {
    for (unsigned seed = 1; seed <= 40; ++seed) {
        const auto held_back = History(seed).states(IdleTicks::held_back);
        const auto blind = History(seed).states(IdleTicks::blind);
        ASSERT_EQ(held_back.size(), blind.size());
        for (std::size_t step = 0; step < blind.size(); ++step)
            ASSERT_EQ(held_back[step], blind[step]) << "history " << seed << ", step " << step;
    }
}

} // namespace
} // namespace lookfar::testing
