#include "acquisition/main_window.h"
#include "pipeline/fullscreen_window.h"

namespace lookfar {

void FullscreenWindow::open_panel() {
    Command1.Visible = false;
    Combo1.Visible = false;
    Shape1.Visible = false;
    Shape2.Visible = false;
    Shape1.Left = Width - (Shape1.Width / 2 + Shape2.Width);
    Shape2.Left = Shape1.Left + Shape1.Width / 2;
    Combo1.Left = Width - (Combo1.Width + 60);
    Command1.Left = Shape1.Left + 240;
    Command1.Caption = panel_state::open;
    Command1.Visible = true;
    Combo1.Visible = true;
    Shape1.DrawMode = DrawMode::copy_pen;
    Shape1.Visible = true;
    Shape2.Visible = true;
    Line1.Visible = true;
}

void FullscreenWindow::close_panel() {
    Command1.Visible = false;
    Combo1.Visible = false;
    Shape1.Visible = false;
    Shape2.Visible = false;
    Line1.Visible = false;
    Shape1.Left = Width - Shape1.Width / 2;
    Shape2.Left = Width;
    Combo1.Left = Width;
    Command1.Left = Shape1.Left + 240;
    Command1.Caption = panel_state::closed;
    Command1.Visible = true;
    Combo1.Visible = true;
    Shape1.DrawMode = DrawMode::merge_pen;
    Shape1.Visible = true;
    Shape2.Visible = true;
}

void FullscreenWindow::Command1_Click() {
    if (Command1.Caption == panel_state::closed) {
        open_panel();
    } else {
        close_panel();
        rest_arrow();
    }
}

void MainWindow::Ueberpruefen() {
    if (Form2->Command1.Caption == panel_state::open)
        Form2->open_panel();
    else
        Form2->close_panel();
}

} // namespace lookfar
