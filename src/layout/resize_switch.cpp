#include "acquisition/main_window.h"
#include "pipeline/fullscreen_window.h"

namespace lookfar {

void MainWindow::Form_Resize() {
    if (WindowState != WindowState::maximised)
        return;
    Form2->Left = 0;
    Form2->Top = 0;
    Form2->fill_screen();
    Hide();
    Form2->centre_error_lines();
    Form2->Show();
    Ueberpruefen();
    draw_colour_scheme();
}

/// A picture is fitted to the fullscreen window when it is fetched, so that window has its size
/// before the next entry. Where it is up, all of it is laid out anew.
void MainWindow::Form_ScreenChange() {
    if (Size{Form2->Width, Form2->Height} == runtime.Screen())
        return;
    Form2->fill_screen();
    fit_in_fullscreen_window();
    Form_Resize();
}

void FullscreenWindow::Form_ScreenChange() {
    Form1->ScreenChange.raise();
}

void FullscreenWindow::fill_screen() {
    Width = runtime.Screen().Width;
    Height = runtime.Screen().Height;
}

void FullscreenWindow::centre_error_lines() {
    Label2.Left = Width / 2 - Label2.Width / 2;
    Label2.Top = Height / 2 - Label2.Height / 2 - (Label3.Height + 120);
    Label3.Left = Width / 2 - Label3.Width / 2;
    Label3.Top = Height / 2 - Label3.Height / 2 + 240;
}

} // namespace lookfar
