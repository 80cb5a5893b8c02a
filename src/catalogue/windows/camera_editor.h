#pragma once

#include "catalogue/rewrite.h"
#include "runtime/controls/buttons.h"
#include "runtime/controls/label.h"
#include "runtime/controls/shapes.h"
#include "runtime/controls/text_box.h"
#include "runtime/form.h"
#include "runtime/window.h"

namespace lookfar {

class CameraListWindow;
class FullscreenWindow;
class MainWindow;
class Program;

/// What the editor's mode cell holds.
namespace editor_mode {
inline constexpr const char* add = "0";
inline constexpr const char* edit = "1";
} // namespace editor_mode

/// `Form4`: a camera's title and URL. Ok saves, Cancel leaves; there is no close box.
class CameraEditor : public Form {
  public:
    explicit CameraEditor(Program& program);

    // The title.
    TextBox Text1{
        *this,
        {.Text = "Text1", .At = {120, 360, 4455, 285}, .TabIndex = 0, .AccessibleName = "Title"}};
    // Caption of Text1.
    Label Label1{*this,
                 {.Caption = "Title",
                  .At = {120, 120, 4455, 255},
                  .Back = BackStyle::transparent,
                  .TabIndex = 1}};
    // Caption of Text2.
    Label Label2{*this,
                 {.Caption = "URL",
                  .At = {120, 720, 4455, 255},
                  .Back = BackStyle::transparent,
                  .TabIndex = 2}};
    // The URL.
    TextBox Text2{*this,
                  {.Text = "Text2",
                   .At = {120, 960, 4455, 285},
                   .LineBreaks = LineBreaks::nothing,
                   .TabIndex = 3,
                   .AccessibleName = "URL"}};
    // Rule above the buttons.
    Frame Frame1{*this, {.At = {120, 1320, 4455, 30}, .TabIndex = 4}};
    // Saves.
    CommandButton Command1{
        *this, {.Caption = "&Ok", .At = {3720, 1440, 855, 375}, .Default = true, .TabIndex = 5}};
    // Leaves without saving.
    CommandButton Command2{*this,
                           {.Caption = "&Cancel", .At = {2880, 1440, 855, 375}, .TabIndex = 6}};
    // State cell: the mode, `editor_mode`.
    Label Label3{*this,
                 {.Caption = editor_mode::add,
                  .At = {120, 1440, 255, 255},
                  .Visible = false,
                  .IsNeverShown = true,
                  .Align = Alignment::centre,
                  .TabIndex = 7}};

  private:
    void Command1_Click();
    void Command2_Click();
    void Form_QueryUnload(short& Cancel, short UnloadMode);

    catalogue::Save what_is_saved();
    bool may_overwrite();

    Window<MainWindow>& Form1;
    Window<FullscreenWindow>& Form2;
    Window<CameraListWindow>& Form3;
};

} // namespace lookfar
