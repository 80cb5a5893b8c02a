#include "acquisition/main_window.h"

#include "runtime/message_box.h"
#include "runtime/numbers.h"

namespace lookfar {

namespace {
constexpr short true_colour = 32;
}

void MainWindow::warn_of_colour_depth() {
    if (runtime.ScreenColourDepth() >= true_colour)
        return;
    runtime.MsgBox("Your actual color depth is less than 32bit. The Blur-Effect, which smoothers "
                   "the Skyglass picture, can't be applied and will be switched off.",
                   MessageBoxFlag::critical, "Color Depth Error");
    Check2.Value = 0;
    BlurEffect.Caption = "0";
}

void MainWindow::Check2_Click() {
    if (Check2.Value != 1)
        return;
    if (strict_number(BlurEffect.Caption) != 0)
        return;
    runtime.MsgBox("The Blur-Effect may not apply as it should be, because of your actual colour "
                   "depth!",
                   MessageBoxFlag::information, "Blur Effect Information");
}

} // namespace lookfar
