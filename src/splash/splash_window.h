#pragma once

#include "resource_pictures.h"
#include "runtime/controls/images.h"
#include "runtime/controls/label.h"
#include "runtime/controls/shapes.h"
#include "runtime/controls/timer.h"
#include "runtime/form.h"
#include "runtime/window.h"

namespace lookfar {

class MainWindow;
class Program;

/// `Loading`: the window that the program opens on. After a second it loads the main window, whose
/// start-up hides it.
class SplashWindow : public Form {
  public:
    explicit SplashWindow(Program& program);

    // The running text.
    Label Label2{*this,
                 {.Caption = "Loading",
                  .At = {150, 2640, 735, 210},
                  .Back = BackStyle::transparent,
                  .ForeColor = colour::black,
                  .Font = {.Name = "Courier New", .Bold = true},
                  .Sizing = LabelSizing::to_caption,
                  .TabIndex = 1}};
    // Rules above and below the text.
    Line Line1{*this, {.X1 = 120, .Y1 = 2640, .X2 = 4560, .Y2 = 2640, .BorderColor = 0x00C0C0C0}};
    Line Line2{*this, {.X1 = 120, .Y1 = 2880, .X2 = 4560, .Y2 = 2880, .BorderColor = 0x00C0C0C0}};
    // State cell: seconds until the hand-over.
    Label Label1{*this,
                 {.Caption = "1",
                  .At = {480, 0, 255, 375},
                  .Visible = false,
                  .IsNeverShown = true,
                  .TabIndex = 0}};
    // State cell: position of the running text.
    Label Pos1{*this,
               {.Caption = "0",
                .At = {480, 840, 255, 375},
                .Visible = false,
                .IsNeverShown = true,
                .TabIndex = 3}};
    // State cell: the text that runs.
    Label Label3{*this,
                 {.Caption = "Loading...  ",
                  .At = {0, 480, 375, 255},
                  .Visible = false,
                  .IsNeverShown = true,
                  .TabIndex = 2}};
    // Hand-over.
    Timer Timer1{*this, {.Enabled = true, .Interval = 1000}};
    // Running text.
    Timer Timer2{*this, {.Enabled = true, .Interval = 100}};
    // The window's picture.
    Image Ground{*this,
                 {.Picture = splash_picture(),
                  .At = {0, 0, 4800, 3600},
                  .Stretch = true,
                  .AccessibleName = "Lookfar"}};

  private:
    void Form_Seen();
    void Timer1_Timer();
    void Timer2_Timer();
    void Form_QueryUnload(short& Cancel, short UnloadMode);

    Window<MainWindow>& Form1;
};

} // namespace lookfar
