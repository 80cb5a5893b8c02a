#pragma once

#include "resource_pictures.h"
#include "runtime/controls/buttons.h"
#include "runtime/controls/images.h"
#include "runtime/controls/label.h"
#include "runtime/controls/shapes.h"
#include "runtime/form.h"
#include "runtime/window.h"

namespace lookfar {

class MainWindow;
class Program;

/// `About`: name, version, thanks and two links. A link that was opened turns purple until the
/// window is unloaded.
class AboutWindow : public Form {
  public:
    explicit AboutWindow(Program& program);

    // Program name.
    Label Label1{*this,
                 {.Caption = "Lookfar",
                  .At = {120, 120, 4335, 375},
                  .Back = BackStyle::transparent,
                  .Font = {.Name = "Arial Black", .Size = 14.25F, .Italic = true},
                  .TabIndex = 0}};
    // Version.
    Label Label2{*this,
                 {.Caption = "2.2.2002",
                  .At = {2040, 480, 1455, 375},
                  .Align = Alignment::right,
                  .Back = BackStyle::transparent,
                  .Font = {.Name = "Arial", .Size = 14.25F, .Italic = true},
                  .TabIndex = 1}};
    // Rule under the name.
    Line Line1{*this, {.X1 = 120, .Y1 = 480, .X2 = 3480, .Y2 = 480}};
    // Emblem.
    Image Image1{*this,
                 {.Picture = program_icon(48),
                  .FinePicture = program_icon(128),
                  .At = {3600, 120, 720, 720}}};
    // Maker's notice, with this release's own number; the version above is the name of the line.
    Label Label3{*this,
                 {.Caption = LOOKFAR_VERSION ", " LOOKFAR_RELEASE_YEAR " founders",
                  .At = {120, 960, 4335, 255},
                  .Align = Alignment::right,
                  .Back = BackStyle::transparent,
                  .TabIndex = 2}};
    // Text above the homepage link.
    Label Label5{*this,
                 {.Caption = "If you need any help visit the product homepage:",
                  .At = {120, 960, 2295, 495},
                  .Back = BackStyle::transparent,
                  .TabIndex = 4}};
    // Homepage link: its caption is the address.
    Label Label6{*this,
                 {.Caption = LOOKFAR_HOMEPAGE,
                  .At = {120, 1440, 2295, 255},
                  .Align = Alignment::centre,
                  .Back = BackStyle::transparent,
                  .ForeColor = 0x00800000,
                  .Font = {.Underline = true},
                  .TabIndex = 6,
                  .Role = LabelRole::link}};
    // Text above the mail link.
    Label Label9{*this,
                 {.Caption = "For questions, suggestions and other things, write a mail:",
                  .At = {120, 2040, 2295, 495},
                  .Back = BackStyle::transparent,
                  .TabIndex = 7}};
    // Mail link: its caption is the address.
    Label Label10{*this,
                  {.Caption = "mail@lookfar.example",
                   .At = {120, 2520, 2295, 255},
                   .Align = Alignment::centre,
                   .Back = BackStyle::transparent,
                   .ForeColor = 0x00800000,
                   .Font = {.Underline = true},
                   .TabIndex = 8,
                   .Role = LabelRole::link}};
    // Rule between the links and the thanks.
    Frame Frame1{*this, {.At = {2520, 840, 30, 2655}, .TabIndex = 5}};
    // Thanks.
    Label Label4{*this,
                 {.Caption = "Special Thanks to Ada Fenwick and Jonas Brandt",
                  .At = {2640, 1320, 1815, 615},
                  .Align = Alignment::centre,
                  .Back = BackStyle::transparent,
                  .TabIndex = 3}};
    // Closes the window.
    CommandButton Command1{*this, {.Caption = "&Ok", .At = {3480, 3240, 975, 375}, .TabIndex = 9}};

  private:
    void Label6_Click();
    void Label10_Click();
    void Command1_Click();

    Window<MainWindow>& Form1;
};

} // namespace lookfar
