#pragma once

#include "resource_pictures.h"
#include "runtime/controls/bars.h"
#include "runtime/controls/buttons.h"
#include "runtime/controls/images.h"
#include "runtime/controls/inet.h"
#include "runtime/controls/label.h"
#include "runtime/controls/lists.h"
#include "runtime/controls/popup_menu.h"
#include "runtime/controls/shapes.h"
#include "runtime/controls/text_box.h"
#include "runtime/controls/timer.h"
#include "runtime/form.h"
#include "runtime/window.h"

#include <string>

namespace lookfar {

class AboutWindow;
class CameraEditor;
class CameraListWindow;
class FullscreenWindow;
class PictureFile;
class Program;
class SplashWindow;

/// `Form1`: the main window. It owns the camera selection, both interval inputs, the timers that
/// drive the refresh and the rotation, the transfer control and the picture.
class MainWindow : public Form {
  public:
    explicit MainWindow(Program& program);

    // The controls, front to back.

    // Reload.
    CommandButton Command2{*this,
                           {.Caption = "q",
                            .At = {4440, 3885, 375, 315},
                            .Font = {.Name = "Webdings", .Size = 12},
                            .TabIndex = 2,
                            .ToolTipText = "Reload",
                            .AccessibleName = "Reload"}};
    // Blur switch.
    CheckBox Check2{
        *this,
        {.Caption = "Blur Effect", .At = {2400, 4680, 1095, 255}, .Value = 1, .TabIndex = 15}};
    // The fullscreen window's status line.
    StatusBar StatusBar1{*this, {.At = {0, 4935, 4935, 255}, .TabIndex = 13}};
    // Fetches the picture.
    Inet Inet1{*this, {.RemotePort = 80, .RequestTimeout = 60}};
    // Rotation interval in seconds; lies in the gap of Check1's caption.
    TextBox Text2{*this,
                  {.Text = "60",
                   .At = {3720, 4365, 375, 200},
                   .HasBorder = false,
                   .Align = Alignment::centre,
                   .MaxLength = 2,
                   .BackColor = colour::button_face,
                   .Font = {.Bold = true},
                   .TabIndex = 11,
                   .AccessibleName = "Seconds until the camera changes"}};
    // Camera rotation.
    Timer Timer2{*this, {.Enabled = false, .Interval = 60000}};
    // Rotation on or off.
    CheckBox Check1{*this,
                    {.Caption = "Change every           seconds",
                     .At = {2400, 4320, 2415, 285},
                     .Value = 0,
                     .TabIndex = 10}};
    // Steps Text1.
    UpDown UpDown1{*this,
                   {.At = {150, 4560, 255, 225},
                    .Value = 10,
                    .Min = 1,
                    .Max = 60,
                    .TabIndex = 8,
                    .AccessibleName = "Seconds until Refresh"}};
    // Opens the camera list window.
    CommandButton Command1{*this,
                           {.Caption = "...",
                            .At = {3960, 3885, 375, 315},
                            .TabIndex = 1,
                            .AccessibleName = "Camera list"}};
    // Refresh interval in seconds.
    TextBox Text1{*this,
                  {.Text = "10",
                   .At = {120, 4530, 540, 285},
                   .Align = Alignment::right,
                   .MaxLength = 2,
                   .TabIndex = 3,
                   .AccessibleName = "Seconds until Refresh"}};
    // Camera selection.
    ComboBox Combo1{*this,
                    {.At = {120, 3900, 3735, 315}, .TabIndex = 0, .AccessibleName = "Camera"}};
    // Refresh.
    Timer Timer1{*this, {.Enabled = true, .Interval = 10000}};
    // State cell: URL of the camera that the last refresh looked up.
    TextBox Text3{*this,
                  {.Text = "Skyglass",
                   .At = {3840, 3360, 915, 285},
                   .Visible = false,
                   .IsNeverShown = true,
                   .Align = Alignment::centre,
                   .TabIndex = 4}};
    // Never shown; its click opens the About window.
    Image Image2{*this,
                 {.Picture = program_icon(32),
                  .At = {4200, 3120, 480, 480},
                  .Visible = false,
                  .IsNeverShown = true,
                  .ToolTipText = "Info about Lookfar"}};
    // Busy mark: a picture is on its way.
    Image Image1{*this,
                 {.Picture = program_icon(48),
                  .FinePicture = program_icon(128),
                  .At = {240, 240, 480, 480},
                  .Visible = false,
                  .Stretch = true,
                  .AccessibleName = "A picture is on its way"}};
    // Frame of the picture area; gets the mouse over the picture.
    Label Label4{*this,
                 {.At = {60, 120, 4815, 3615},
                  .Back = BackStyle::transparent,
                  .Border = LabelBorder::fixed_single,
                  .TabIndex = 9,
                  .ToolTipText = "Doubleclick for Fullscreen"}};
    // The picture.
    Image ImagNT1{*this,
                  {.At = {60, 120, 4815, 3615},
                   .Stretch = true,
                   .ToolTipText = "Doubleclick for Fullscreen",
                   .AccessibleName = "Camera picture"}};
    // Description line of the error display.
    Label Label3{*this,
                 {.Caption = "Err.Description",
                  .At = {165, 1200, 4605, 345},
                  .Visible = false,
                  .Align = Alignment::centre,
                  .BackColor = colour::black,
                  .ForeColor = colour::white,
                  .Font = {.Name = "Arial", .Size = 14.25F, .Italic = true},
                  .Sizing = LabelSizing::downwards,
                  .TabIndex = 7,
                  .Announcement = Announcement::assertive}};
    // Number line of the error display.
    Label Label2{*this,
                 {.Caption = "Error #Err.Number",
                  .At = {120, 600, 4665, 570},
                  .Visible = false,
                  .Align = Alignment::centre,
                  .BackColor = colour::black,
                  .ForeColor = colour::white,
                  .Font = {.Name = "Arial Black", .Size = 20.25F, .Italic = true},
                  .TabIndex = 6}};
    // Caption of Text1.
    Label Label1{*this,
                 {.Caption = "Seconds until Refresh",
                  .At = {720, 4560, 1695, 255},
                  .Back = BackStyle::transparent,
                  .TabIndex = 5}};
    // Ground of the picture area.
    Shape Shape1{
        *this, {.At = {60, 120, 4815, 3615}, .Fill = FillStyle::solid, .FillColor = colour::black}};
    // State cell of the colour depth gate: "0" once it has fired.
    Label BlurEffect{*this,
                     {.Caption = "1",
                      .At = {360, 0, 255, 255},
                      .Visible = false,
                      .IsNeverShown = true,
                      .TabIndex = 14}};
    // State cell: number of the colour scheme applied last.
    Label Label5{*this,
                 {.Caption = "0",
                  .At = {0, 0, 255, 255},
                  .Visible = false,
                  .IsNeverShown = true,
                  .TabIndex = 12}};

    MenuItem GoToFull{*this, "&Fullscreen"};
    MenuItem Strich1{*this, "-"};
    MenuItem ImgReload{*this, "&Reload"};
    MenuItem Strich2{*this, "-"};
    MenuItem LKF_About{*this, "&About..."};
    lookfar::PopupMenu PopUpMenu1{*this, {&GoToFull, &Strich1, &ImgReload, &Strich2, &LKF_About}};

    // The fetch.

    /// Fetches a picture into both windows, or shows why it can't be had. Waits with the message
    /// loop running. Failures are never passed on.
    void GetRESOURCE(std::string url);
    /// The text behind a URL; empty after a failure, which is shown.
    std::string GetHTML(const std::string& WWW_Adresse);

    /// Says at the selector what is wrong with a list that ends on a title without an address.
    void tell_of_incomplete_list();

    /// Asks the remote access service, where there is one, about the dial-up connections in force.
    /// Gives true, whatever it answers.
    bool DFÜStatus();

  private:
    // Start-up.
    void Form_Load();
    void fill_selector_lists();
    void draw_first_camera();

    // Refresh.
    void Timer1_Timer();
    void Command2_Click();
    void ImgReload_Click();
    void tell_that_nothing_is_selected();
    void look_up_selected_camera();

    // Fetch.
    void show_in_fullscreen_window(PictureFile& file);
    void fit_in_fullscreen_window();
    void show_in_main_window(PictureFile& file);
    void clear_error_display();
    void show_error(const Failure& failure);
    void write_error_captions(const Failure& failure);
    void report_duration(float start);
    void name_pictures(const std::string& title);
    void announce_new_picture();

    // Selection and rotation.
    void Check1_Click();
    void Timer2_Timer();
    void Combo1_Click();
    void Command1_Click();

    // Interval inputs.
    void Text1_Change();
    void Text2_Change();
    void Text1_KeyDown(KeyCode KeyCode, short Shift);
    void Text2_KeyDown(KeyCode KeyCode, short Shift);
    void Text1_GotFocus();
    void UpDown1_Change();

    // Colour depth gate and blur switch.
    void warn_of_colour_depth();
    void Check2_Click();

    // The way into fullscreen, and the pointer.
    void ImagNT1_DblClick();
    void Label4_DblClick();
    void GoToFull_Click();
    void ImagNT1_MouseDown(MouseButton Button);
    void Label4_MouseDown(MouseButton Button);
    void Form_MenuKey();

    // The way of pictures and addresses to other programs and from them.
    void Form_CopyKey();
    void ImagNT1_DragOut();
    void Form_AddressGiven(const std::string& address, const std::string& title);
    PictureReference shown_picture() const;

    // The About window.
    void Image2_Click();
    void LKF_About_Click();

    // The switch to the fullscreen window.
    void Form_Resize();
    void Form_ScreenChange();
    void Ueberpruefen();
    void draw_colour_scheme();

    // Shutdown.
    void Form_QueryUnload(short& Cancel, short UnloadMode);
    void Form_Unload();

    Window<FullscreenWindow>& Form2;
    Window<CameraListWindow>& Form3;
    Window<CameraEditor>& Form4;
    Window<SplashWindow>& Loading;
    Window<AboutWindow>& About;
};

} // namespace lookfar
