#include "splash/about_window.h"

#include "acquisition/main_window.h"
#include "program.h"

namespace lookfar {

namespace {
constexpr Colour visited = 0x00800080;
}

AboutWindow::AboutWindow(Program& program)
    : Form(program.runtime, {.Caption = "About Lookfar 2.2.2002",
                             .Client = {4605, 3750},
                             .Border = FormBorder::fixed_tool_window,
                             .MinButton = false,
                             .ShowInTaskbar = false,
                             .CentredOnScreen = true,
                             .HasIcon = false}),
      Form1(program.Form1) {
    Label6.Click.connect(this, &AboutWindow::Label6_Click);
    Label10.Click.connect(this, &AboutWindow::Label10_Click);
    Command1.Click.connect(this, &AboutWindow::Command1_Click);
}

void AboutWindow::Label6_Click() {
    runtime.OpenLink("http://" + Label6.Caption);
    Label6.ForeColor = visited;
}

void AboutWindow::Label10_Click() {
    runtime.OpenLink("mailto:" + Label10.Caption);
    Label10.ForeColor = visited;
}

void AboutWindow::Command1_Click() {
    Hide();
    Form1->Show();
}

} // namespace lookfar
