#include "acquisition/main_window.h"

#include "catalogue/windows/camera_list_window.h"
#include "pipeline/fullscreen_window.h"

#include <cmath>

namespace lookfar {

void MainWindow::Combo1_Click() {
    if (Form2->Combo1.ListIndex != Combo1.ListIndex)
        Form2->Combo1.ListIndex = Combo1.ListIndex;
}

void MainWindow::Command1_Click() {
    Form3->List1.ListIndex = Combo1.ListIndex;
    Form3->Timer1.Enabled = true;
    Form3->Show();
}

void MainWindow::Check1_Click() {
    Timer2.Enabled = Check1.Value == 1;
}

void MainWindow::Timer2_Timer() {
    // With fewer than two cameras there is no other one to draw.
    if (Combo1.ListCount() < 2)
        return;
    runtime.random().Randomize(runtime.SecondsSinceMidnight());
    float c = 0;
    do
        c = std::floor(runtime.random().Rnd() * static_cast<float>(Combo1.ListCount()));
    while (c == static_cast<float>(Combo1.ListIndex));
    Form2->Combo1.Text = Combo1.List(static_cast<short>(c));
    if (Combo1.Text != Form2->Combo1.Text)
        Combo1.Text = Form2->Combo1.Text;
}

} // namespace lookfar
