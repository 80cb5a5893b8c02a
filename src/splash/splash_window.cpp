#include "splash/splash_window.h"

#include "acquisition/main_window.h"
#include "program.h"
#include "runtime/numbers.h"

namespace lookfar {

SplashWindow::SplashWindow(Program& program)
    : Form(program.runtime, {.Client = {4800, 3600},
                             .Border = FormBorder::fixed_dialog,
                             .ControlBox = false,
                             .MinButton = false,
                             .ShowInTaskbar = false,
                             .CentredOnScreen = true,
                             .MousePointer = MousePointer::hourglass,
                             .AccessibleName = "Lookfar is starting"}),
      Form1(program.Form1) {
    Timer1.Tick.connect(this, &SplashWindow::Timer1_Timer);
    Timer2.Tick.connect(this, &SplashWindow::Timer2_Timer);
    Seen.connect(this, &SplashWindow::Form_Seen);
    QueryUnload.connect(this, &SplashWindow::Form_QueryUnload);
}

/// The second counts from when the user sees the window, and every write restarts the count.
void SplashWindow::Form_Seen() {
    Timer1.Interval = Timer1.Interval;
}

void SplashWindow::Timer1_Timer() {
    Label1.Caption = number_text(Val(Label1.Caption) - 1);
    if (Val(Label1.Caption) != 0)
        return;
    Form1->Left = 0;
    Form1->Top = 0;
    Form1->Show();
    Timer1.Enabled = false;
    Timer2.Enabled = false;
    Form1->tell_of_incomplete_list();
}

void SplashWindow::Timer2_Timer() {
    const std::string text = Label3.Caption;
    Pos1.Caption = number_text(Val(Pos1.Caption) + 1);
    if (Val(Pos1.Caption) > static_cast<double>(text.size()))
        Pos1.Caption = number_text(1);
    const auto turned = static_cast<std::size_t>(Val(Pos1.Caption)) - 1;
    const std::string T = text.substr(turned) + text.substr(0, turned);
    Label2.Left = Width / 2 - Label2.Width / 2;
    Line1.X1 = Label2.Left;
    Line1.X2 = Label2.Left + Label2.Width;
    Line2.X1 = Label2.Left;
    Line2.X2 = Label2.Left + Label2.Width;
    Label2.Caption = T + T + T;
}

/// The window has no close box; without it nothing would bring up the main window.
void SplashWindow::Form_QueryUnload(short& Cancel, short /*UnloadMode*/) {
    Cancel = -1;
}

} // namespace lookfar
