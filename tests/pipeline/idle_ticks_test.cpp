#include "support/machine.h"

#include <gtest/gtest.h>

#include <iterator>
#include <random>

namespace lookfar::testing {
namespace {

/// Everything that the ticks that wait for a change read or write, and what follows from it, as one
/// text.
std::string state_of(Machine& machine) {
    FullscreenWindow& Form2 = *machine.Form2;
    std::string state;
    for (const PictureReference& picture :
         {Form2.Picture1.Picture.get(), Form2.Image3.Picture.get(),
          machine.Form1->ImagNT1.Picture.get()})
        state += (picture ? std::to_string(std::hash<std::string>{}(
                                std::string(picture->bytes().begin(), picture->bytes().end())))
                          : "none") +
                 "|";
    for (const Label* label : {&Form2.Label1, &Form2.Label2, &Form2.Label3, &Form2.Label4,
                               &Form2.Label7, &Form2.Label8, &machine.Form1->Label2})
        state += label->Caption.get() + (label->Visible ? "+|" : "-|");
    for (const bool flag :
         {Form2.Timer2.Enabled.get(), Form2.Timer4.Enabled.get(), Form2.Image3.Visible.get(),
          Form2.TestBild.Visible.get(), machine.Form1->ImagNT1.Visible.get()})
        state += flag ? '+' : '-';
    return state + "|" + machine.Form1->StatusBar1.Text + "|" + Form2.Combo1.Text + "|" +
           machine.Form3->List1.Text + "|" + std::to_string(machine.platform.requests.size());
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
            // Everything happens at multiples of five, in the midst of a fetch too; a look in
            // between never meets a tick that is due at that very instant.
            machine.platform.after(milliseconds(5 * draw(200)), [this, &machine] {
                machine.program.runtime.deliver([this, &machine] { act(machine); });
            });
            machine.platform.run_for(milliseconds(2 + 5 * draw(4) * draw(80)));
            states.push_back(state_of(machine));
            machine.platform.run_for(milliseconds(3));
        }
        EXPECT_TRUE(machine.platform.untrapped.empty());
        return states;
    }

  private:
    int draw(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }

    void act(Machine& machine) {
        const char camera = static_cast<char>('a' + draw(3));
        const std::string number = std::to_string(1 + draw(5));
        const auto index = static_cast<short>(draw(machine.Form1->Combo1.ListCount() + 1) - 1);
        const std::function<void()> acts[] = {
            [&] { machine.refresh(); },
            [&] { machine.Form1->Combo1.ListIndex = index; },
            [&] { machine.Form2->Combo1.ListIndex = index; },
            [&] { machine.Form3->List1.ListIndex = index; },
            [&] { machine.Form1->Command1.Click.raise(); },
            [&] { machine.Form3->Command4.Click.raise(); },
            [&] { remove(machine); },
            [&] { save(machine, camera); },
            [&] { save(machine, camera); },
            [&] { machine.Form1->Check2.Value = static_cast<short>(draw(2)); },
            [&] { machine.Form1->Check1.Value = static_cast<short>(draw(2)); },
            [&] { machine.Form1->Text1.Text = number; },
            [&] { machine.Form1->Text2.Text = number; },
            [&] { machine.Form1->Text3.Text = "http://cameras.example/gift.jpg"; },
            [&] { machine.set_answer(camera, Failure(7, "refused"), milliseconds(5 * draw(180))); },
            [&] { answer_slowly(machine, camera); },
            [&] { answer_slowly(machine, camera); },
        };
        acts[draw(std::size(acts))]();
    }
    void remove(Machine& machine) {
        if (machine.Form3->List1.ListCount() > 1)
            machine.Form3->Command2.Click.raise();
    }
    void save(Machine& machine, char camera) {
        machine.Form3->Command1.Click.raise();
        machine.Form4->Text1.Text = std::string(1, camera);
        machine.Form4->Text2.Text = Machine::url_of(camera);
        machine.Form4->Command1.Click.raise();
    }
    void answer_slowly(Machine& machine, char camera) {
        machine.set_answer(camera, detailed_jpeg(16 + 4 * draw(5), 16),
                           milliseconds(5 * draw(600)));
    }

    std::mt19937 random_;
};

TEST(IdleTicks, HeldBackReachTheStatesOfBlindOnes) {
    for (unsigned seed = 1; seed <= 30; ++seed) {
        const auto held_back = History(seed).states(IdleTicks::held_back);
        const auto blind = History(seed).states(IdleTicks::blind);
        for (std::size_t step = 0; step < held_back.size(); ++step)
            ASSERT_EQ(held_back[step], blind[step]) << "history " << seed << ", step " << step;
    }
}

} // namespace
} // namespace lookfar::testing
