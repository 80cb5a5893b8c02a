#include "pipeline/fullscreen_window.h"

#include "program.h"

namespace lookfar {

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

    Resize.connect(this, &FullscreenWindow::Form_Resize);
    ScreenChange.connect(this, &FullscreenWindow::Form_ScreenChange);
    Command1.Click.connect(this, &FullscreenWindow::Command1_Click);

    Image3.DblClick.connect(this, &FullscreenWindow::Image3_DblClick);
    DblClick.connect(this, &FullscreenWindow::Form_DblClick);
    TestBild.DblClick.connect(this, &FullscreenWindow::TestBild_DblClick);
    QueryUnload.connect(this, &FullscreenWindow::Form_QueryUnload);
    Command1.MouseMove.connect(this, &FullscreenWindow::Command1_MouseMove);
    Image3.MouseMove.connect(this, &FullscreenWindow::Image3_MouseMove);
    TestBild.MouseMove.connect(this, &FullscreenWindow::TestBild_MouseMove);
}

} // namespace lookfar
