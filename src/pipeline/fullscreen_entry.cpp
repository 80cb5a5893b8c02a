#include "acquisition/main_window.h"
#include "pipeline/fullscreen_window.h"

namespace lookfar {

void MainWindow::ImagNT1_DblClick() {
    WindowState = WindowState::maximised;
    Hide();
}

void MainWindow::Label4_DblClick() {
    ImagNT1_DblClick();
}

void MainWindow::GoToFull_Click() {
    ImagNT1_DblClick();
}

void MainWindow::ImagNT1_MouseDown(MouseButton Button) {
    if (Button == MouseButton::right)
        PopupMenu(PopUpMenu1, &GoToFull);
}

void MainWindow::Label4_MouseDown(MouseButton Button) {
    ImagNT1_MouseDown(Button);
}

void MainWindow::Form_MenuKey() {
    ImagNT1_MouseDown(MouseButton::right);
}

void FullscreenWindow::Image3_DblClick() {
    Form1->Visible = true;
    Form1->WindowState = WindowState::normal;
    Visible = false;
    Form1->Show();
}

void FullscreenWindow::Form_DblClick() {
    Image3_DblClick();
}

void FullscreenWindow::TestBild_DblClick() {
    Image3_DblClick();
}

/// A close request leaves fullscreen, as the double click does.
void FullscreenWindow::Form_QueryUnload(short& Cancel, short /*UnloadMode*/) {
    Cancel = -1;
    Image3_DblClick();
}

void FullscreenWindow::Command1_MouseMove() {
    Command1.ForeColor = colour::white;
    Command1.BackColor = colour::black;
}

void FullscreenWindow::rest_arrow() {
    Command1.ForeColor = colour::black;
    Command1.BackColor = colour::white;
}

void FullscreenWindow::Image3_MouseMove() {
    rest_arrow();
}

void FullscreenWindow::TestBild_MouseMove() {
    rest_arrow();
}

} // namespace lookfar
