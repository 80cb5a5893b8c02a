// Whatever stands in the two interval boxes, and whichever arrow key is pressed in them, they and
// their timers end in agreement and within the limits of the timers.
#include "acquisition/main_window.h"
#include "fuzz/support/expect.h"
#include "fuzz/support/memory_platform.h"
#include "program.h"
#include "runtime/failure.h"
#include "runtime/numbers.h"

#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <string>

namespace lookfar::fuzz {
namespace {

/// A program without a camera. It serves all inputs, since every input sets both boxes anew.
struct Machine {
    MemoryPlatform platform;
    Program program{platform};
};

void expect_agreement(TextBox& box, Timer& timer) {
    const double seconds = strict_number(box.Text);
    expect(seconds != 0, "a box never holds zero");
    expect(timer.Interval == round_to_long(seconds * 1000), "the timer has the box's seconds");
    expect(timer.Interval >= 0 && timer.Interval <= 65535, "the timer's limits hold");
}

void expect_order(MainWindow& window) {
    expect_agreement(window.Text1, window.Timer1);
    expect_agreement(window.Text2, window.Timer2);
    const double rotation = strict_number(window.Text2.Text);
    expect(rotation >= 1 && rotation <= 60, "the rotation takes from 1 to 60 seconds");
}

void write(TextBox& box, const std::string& text) {
    // A write of the text that a box has raises nothing.
    box.Text = "";
    box.Text = text;
    const std::string settled = box.Text;
    expect(settled == text || settled == "1" || settled == "60",
           "a text stands or gives way to a limit");
}

/// What an interval box takes, in seconds.
struct Limits {
    double shortest;
    double longest;
};

void press(TextBox& box, KeyCode key, Limits limits) {
    const double before = Val(box.Text);
    double expected = before;
    if (key == KeyCode::up && before < 60)
        expected = std::min(before + 1, limits.longest);
    if (key == KeyCode::down && before > 1)
        expected = std::max(before - 1, limits.shortest);
    box.KeyDown.raise(key, 0);
    expect(Val(box.Text) == expected, "a key steps by one and stops at the limits");
}

void check_box(FuzzedDataProvider& input, MainWindow& window, TextBox& box, Limits limits) {
    write(box, input.ConsumeRandomLengthString(32));
    expect_order(window);
    for (int presses = input.ConsumeIntegralInRange(0, 8); presses > 0; --presses) {
        press(box, input.ConsumeBool() ? KeyCode::up : KeyCode::down, limits);
        expect_order(window);
    }
    box.GotFocus.raise();
}

void check(FuzzedDataProvider& input, MainWindow& window) {
    check_box(input, window, window.Text1, {.shortest = 0, .longest = 65.535});
    check_box(input, window, window.Text2, {.shortest = 1, .longest = 60});
    attempt([&] { window.UpDown1.Value = input.ConsumeIntegralInRange<short>(-2, 62); });
    expect_order(window);
}

} // namespace
} // namespace lookfar::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace lookfar;
    static fuzz::Machine machine;
    FuzzedDataProvider input(data, size);
    fuzz::check(input, *machine.program.Form1);
    return 0;
}
