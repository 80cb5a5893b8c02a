#pragma once

#include "resource_pictures.h"
#include "runtime/controls/images.h"
#include "runtime/controls/label.h"
#include "runtime/controls/lists.h"
#include "runtime/controls/shapes.h"
#include "runtime/controls/timer.h"
#include "runtime/form.h"
#include "runtime/window.h"

namespace lookfar {

class MainWindow;
class Program;

/// What the caption of the control panel's arrow holds: where the arrow points is where a click
/// moves the panel.
namespace panel_state {
inline constexpr const char* open = "4";
inline constexpr const char* closed = "3";
} // namespace panel_state

/// `Form2`: the fullscreen window, and the pipeline that every fetched picture passes through,
/// whether the window is shown or not. Its state lies in its controls.
class FullscreenWindow : public Form {
  public:
    explicit FullscreenWindow(Program& program);

    // The controls, front to back; the colours are those of the red scheme.

    // Hands pictures over and passes the status line on.
    Timer Timer4{*this, {.Enabled = true, .Interval = 1, .Ticks = TickRule::after_a_change}};
    // Shows the test card while the failure flag is set.
    Timer Timer3{*this, {.Enabled = true, .Interval = 1, .Ticks = TickRule::after_a_change}};
    // Blinks the error; whether it is enabled is the failure flag.
    Timer Timer2{*this, {.Enabled = false, .Interval = 500}};
    // Watches the selection against the last refresh.
    Timer Timer1{*this, {.Enabled = true, .Interval = 1000}};
    // Control panel: camera selection, the one that counts.
    ComboBox Combo1{*this,
                    {.At = {4800, 60, 4095, 330},
                     .Sorted = true,
                     .BackColor = 0x000000C0,
                     .ForeColor = colour::white,
                     .Font = {.Name = "Arial", .Bold = true},
                     .IsFlat = true,
                     .AccessibleName = "Camera"}};
    // The current picture, the one that the filter changes.
    PictureBox Picture1{*this, {.At = {720, 120, 375, 375}, .Visible = false}};
    // Title banner: loading mark, up until a fetch succeeds.
    Image Image2{*this,
                 {.Picture = program_icon(48),
                  .FinePicture = program_icon(128),
                  .At = {7620, 4920, 720, 720},
                  .Visible = false,
                  .AccessibleName = "A picture is on its way"}};
    // Title banner: disc behind the loading mark.
    Shape Shape3{*this,
                 {.At = {7440, 4800, 1095, 975},
                  .Kind = ShapeKind::circle,
                  .BorderColor = 0x000000C0,
                  .Fill = FillStyle::solid,
                  .FillColor = 0x000000C0}};
    // Title banner: status line, which feeds the main window's status bar too.
    Label Label4{*this,
                 {.Caption = LOOKFAR_HOMEPAGE,
                  .At = {600, 5400, 2190, 270},
                  .Back = BackStyle::transparent,
                  .ForeColor = colour::black,
                  .Font = {.Name = "Arial", .Size = 12, .Bold = true, .Italic = true},
                  .Sizing = LabelSizing::to_caption_on_one_line,
                  .HasRim = true}};
    // Title banner: strip behind the status line.
    Shape Shape6{*this,
                 {.At = {480, 5340, 7575, 450},
                  .Border = BorderStyle::transparent,
                  .Fill = FillStyle::solid,
                  .FillColor = 0x000000C0}};
    // State cell: "0" while the picture is still to be handed over, "1" afterwards.
    Label Label8{
        *this,
        {.Caption = "0", .At = {8520, 2880, 375, 255}, .Visible = false, .IsNeverShown = true}};
    // Control panel: the arrow that opens and closes it; its state cell too, `panel_state`.
    Label Command1{*this,
                   {.Caption = panel_state::open,
                    .At = {4440, 120, 255, 255},
                    .Align = Alignment::centre,
                    .Border = LabelBorder::fixed_single,
                    .BackColor = colour::white,
                    .ForeColor = colour::black,
                    .Font = {.Name = "Webdings", .Size = 9.75F},
                    .Role = LabelRole::button,
                    .AccessibleName = "Camera selection panel",
                    .CaptionWhenOpen = panel_state::open}};
    // State cell: whole seconds of the last fetch.
    Label Label7{
        *this,
        {.Caption = "0", .At = {120, 120, 255, 255}, .Visible = false, .IsNeverShown = true}};
    // Error description.
    Label Label3{*this,
                 {.Caption = "Description",
                  .At = {3045, 2040, 1665, 345},
                  .Visible = false,
                  .Align = Alignment::centre,
                  .Back = BackStyle::transparent,
                  .ForeColor = 0x000000C0,
                  .Font = {.Name = "Arial", .Size = 14.25F, .Bold = true, .Italic = true},
                  .Sizing = LabelSizing::to_caption_in_window,
                  .HasRim = true,
                  .Announcement = Announcement::assertive}};
    // Blinking error number.
    Label Label2{*this,
                 {.Caption = "Error #00",
                  .At = {2520, 1200, 2805, 765},
                  .Visible = false,
                  .Align = Alignment::centre,
                  .Back = BackStyle::transparent,
                  .ForeColor = colour::black,
                  .Font = {.Name = "Arial Black", .Size = 27.75F, .Italic = true},
                  .Sizing = LabelSizing::to_caption_in_window,
                  .HasRim = true}};
    // State cell: title of the camera that the last refresh looked up.
    Label Label1{*this, {.At = {8520, 1200, 375, 255}, .Visible = false, .IsNeverShown = true}};
    // Control panel: line along the bar.
    Line Line1{*this, {.X1 = 4800, .Y1 = 480, .X2 = 9000, .Y2 = 480, .BorderColor = 0x000000FF}};
    // Title banner: camera title.
    Label Label5{*this,
                 {.Caption = "Loading Cam...",
                  .At = {600, 4800, 3285, 570},
                  .Back = BackStyle::transparent,
                  .ForeColor = colour::black,
                  .Font = {.Name = "Arial Black", .Size = 20.25F, .Italic = true},
                  .Sizing = LabelSizing::to_caption_on_one_line,
                  .HasRim = true}};
    // Control panel: bar.
    Shape Shape2{*this,
                 {.At = {4800, -120, 4215, 615},
                  .Border = BorderStyle::transparent,
                  .Fill = FillStyle::solid,
                  .FillColor = 0x000000C0}};
    // Control panel: oval.
    Shape Shape1{*this,
                 {.At = {4200, -240, 1335, 735},
                  .Kind = ShapeKind::oval,
                  .BorderColor = 0x000000FF,
                  .Fill = FillStyle::solid,
                  .FillColor = 0x000000C0}};
    // Title banner: tint over the picture.
    Shape Shape4{*this,
                 {.At = {480, 4785, 7575, 630},
                  .DrawMode = DrawMode::merge_pen,
                  .Border = BorderStyle::transparent,
                  .Fill = FillStyle::solid,
                  .FillColor = 0x000000FF}};
    // Title banner: outline of tint and strip together, which draws nothing.
    Shape Shape5{*this,
                 {.At = {480, 4800, 7575, 975},
                  .Border = BorderStyle::transparent,
                  .Fill = FillStyle::transparent,
                  .FillColor = 0x000000FF}};
    // The camera picture.
    Image Image3{*this, {.At = {0, 0, 2775, 2055}, .AccessibleName = "Camera picture"}};
    // Shown in place of the camera picture after a failed fetch.
    Image TestBild{*this,
                   {.Picture = test_card(),
                    .At = {0, 0, 9060, 6075},
                    .Visible = false,
                    .Stretch = true,
                    .AccessibleName = "Test card: no picture can be had"}};

    // The control panel.

    /// Both lay the panel out anew, whatever state it was in.
    void open_panel();
    void close_panel();

    /// Makes the window as large as the screen.
    void fill_screen();
    /// Puts the error number and description into the middle of the window.
    void centre_error_lines();

  private:
    // The cycle.
    void Timer1_Timer();
    void Timer2_Timer();
    void Timer3_Timer();
    void Timer4_Timer();
    void Combo1_Click();

    // Layout.
    void Form_Resize();
    void Form_ScreenChange();
    void lay_out_title_banner();
    void lay_out_open_panel();
    void Command1_Click();

    // The way back, and the pointer.
    void Image3_DblClick();
    void Form_DblClick();
    void TestBild_DblClick();
    void Form_QueryUnload(short& Cancel, short UnloadMode);
    void rest_arrow();
    void Command1_MouseMove();
    void Image3_MouseMove();
    void TestBild_MouseMove();

    Window<MainWindow>& Form1;
};

} // namespace lookfar
