#include "pipeline/fullscreen_window.h"

namespace lookfar {

void FullscreenWindow::Form_Resize() {
    Label5.Caption = Combo1.Text;
    TestBild.Left = 0;
    TestBild.Top = 0;
    TestBild.Width = Width;
    TestBild.Height = Height;
    lay_out_title_banner();
    lay_out_open_panel();
}

void FullscreenWindow::lay_out_title_banner() {
    Shape3.Top = Height - (Shape3.Height + 360);
    Shape3.Left = Width - (Shape3.Width + 360);
    Shape4.Top = Shape3.Top;
    Shape4.Width = Shape3.Left + 145;
    Shape4.Height = Shape3.Height - Shape6.Height + 30;
    Shape6.Top = (Shape3.Height + Shape3.Top) - (Shape6.Height - 15);
    Shape6.Width = Shape4.Width;
    Shape5.Top = Shape4.Top;
    Shape5.Width = Shape4.Width;
    Shape5.Height = Shape6.Height + Shape4.Height;
    Label5.Top = Shape4.Top + 15;
    Label4.Top = Shape6.Top + 60;
    Image2.Left = Shape3.Left + 180;
    Image2.Top = Shape3.Top + 120;
    // The texts end before the disc.
    Label5.Room = Shape3.Left - Label5.Left;
    Label4.Room = Shape3.Left - Label4.Left;
}

void FullscreenWindow::lay_out_open_panel() {
    Shape1.Left = Width - (Shape1.Width / 2 + Shape2.Width);
    Shape2.Left = Shape1.Left + Shape1.Width / 2;
    Line1.X1 = Shape1.Left + Shape1.Width / 2;
    Line1.X2 = Width;
    Combo1.Left = Width - (Combo1.Width + 60);
    Command1.Left = Shape1.Left + 240;
}

} // namespace lookfar
