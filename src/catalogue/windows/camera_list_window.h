#pragma once

#include "catalogue/selector_lists.h"
#include "runtime/controls/buttons.h"
#include "runtime/controls/lists.h"
#include "runtime/controls/timer.h"
#include "runtime/form.h"
#include "runtime/window.h"

#include <string>

namespace lookfar {

class CameraEditor;
class FullscreenWindow;
class MainWindow;
class Program;

/// `Form3`: the cameras by title, to pick, add, edit and remove. Its list is the master of the
/// three selector lists.
class CameraListWindow : public Form {
  public:
    explicit CameraListWindow(Program& program);

    // The camera titles.
    ListBox List1{
        *this,
        {.At = {120, 120, 2535, 3570}, .Sorted = true, .TabIndex = 0, .AccessibleName = "Cameras"}};
    // Opens the editor for a new camera.
    CommandButton Command1{*this,
                           {.Caption = "&Add...", .At = {2760, 120, 1095, 375}, .TabIndex = 1}};
    // Opens the editor on the selected camera.
    CommandButton Command3{*this,
                           {.Caption = "&Edit...", .At = {2760, 480, 1095, 375}, .TabIndex = 2}};
    // Removes the selected camera.
    CommandButton Command2{*this,
                           {.Caption = "&Remove", .At = {2760, 840, 1095, 375}, .TabIndex = 3}};
    // Closes the window.
    CommandButton Command4{
        *this, {.Caption = "&Ok", .At = {2760, 3360, 1095, 375}, .Default = true, .TabIndex = 4}};
    // Keeps a selection in the list.
    Timer Timer1{*this, {.Enabled = false, .Interval = 1, .Ticks = TickRule::after_a_change}};

    /// Opens the editor for a new camera, with what is known of it already.
    void add_camera(const std::string& title, const std::string& url);

    /// The three lists of cameras, this window's first.
    catalogue::SelectorLists selector_lists();

  private:
    void List1_Click();
    void Timer1_Timer();
    void Command1_Click();
    void Command3_Click();
    void Command2_Click();
    void Command4_Click();
    void Form_QueryUnload(short& Cancel, short UnloadMode);

    Window<MainWindow>& Form1;
    Window<FullscreenWindow>& Form2;
    Window<CameraEditor>& Form4;
};

} // namespace lookfar
