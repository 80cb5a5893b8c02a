#include "pipeline/fullscreen_window.h"

#include "program.h"
#include "resources/resources.h"
#include "runtime/picture_decoder.h"

#include <memory>

namespace lookfar {

PictureReference test_card() {
    return std::make_shared<Picture>(decode_pixels(resources::test_card()));
}

FullscreenWindow::FullscreenWindow(Program& program)
    : Form(program.runtime, {.Caption = "Lookfar Fullscreen Window",
                             .Client = {9390, 6465},
                             .Border = FormBorder::none,
                             .ControlBox = false,
                             .MinButton = false,
                             .BackColor = colour::black}),
      Form1(program.Form1) {
    Timer1.Tick.connect(this, &FullscreenWindow::Timer1_Timer);
    Timer2.Tick.connect(this, &FullscreenWindow::Timer2_Timer);
    Timer3.Tick.connect(this, &FullscreenWindow::Timer3_Timer);
    Timer4.Tick.connect(this, &FullscreenWindow::Timer4_Timer);
    Combo1.Click.connect(this, &FullscreenWindow::Combo1_Click);
}

} // namespace lookfar
