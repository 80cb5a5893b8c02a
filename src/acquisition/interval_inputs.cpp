#include "acquisition/main_window.h"

#include "runtime/numbers.h"

namespace lookfar {

namespace {

constexpr double shortest = 1;
constexpr double longest = 60;

long milliseconds(const std::string& seconds) {
    return round_to_long(strict_number(seconds) * 1000);
}

void step_with_arrow_keys(TextBox& box, KeyCode KeyCode) {
    if (Val(box.Text) < longest && KeyCode == KeyCode::up)
        box.Text = number_text(Val(box.Text) + 1);
    if (Val(box.Text) > shortest && KeyCode == KeyCode::down)
        box.Text = number_text(Val(box.Text) - 1);
}

} // namespace

void MainWindow::Text1_Change() {
    try {
        if (strict_number(Text1.Text) == 0)
            Text1.Text = "1";
        Timer1.Interval = milliseconds(Text1.Text);
    } catch (const Failure&) {
        Text1.Text = Val(Text1.Text) > longest ? "60" : "1";
    }
}

void MainWindow::Text2_Change() {
    try {
        if (Val(Text2.Text) > longest)
            Text2.Text = "60";
        if (Val(Text2.Text) < shortest)
            Text2.Text = "1";
        Timer2.Interval = milliseconds(Text2.Text);
    } catch (const Failure&) {
        Text2.Text = "60";
        Timer2.Interval = milliseconds(Text2.Text);
    }
}

void MainWindow::Text1_KeyDown(lookfar::KeyCode KeyCode, short /*Shift*/) {
    step_with_arrow_keys(Text1, KeyCode);
}

void MainWindow::Text2_KeyDown(lookfar::KeyCode KeyCode, short /*Shift*/) {
    step_with_arrow_keys(Text2, KeyCode);
}

void MainWindow::Text1_GotFocus() {
    Text1.SelStart = 0;
    // The text is a number, each of whose bytes is a character.
    Text1.SelLength = static_cast<int>(Text1.Text.get().size());
}

void MainWindow::UpDown1_Change() {
    Text1.Text = number_text(static_cast<double>(UpDown1.Value));
}

} // namespace lookfar
