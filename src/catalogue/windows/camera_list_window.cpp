#include "catalogue/windows/camera_list_window.h"

#include "acquisition/main_window.h"
#include "catalogue/list_file.h"
#include "catalogue/rewrite.h"
#include "catalogue/windows/camera_editor.h"
#include "pipeline/fullscreen_window.h"
#include "program.h"
#include "runtime/message_box.h"

namespace lookfar {

CameraListWindow::CameraListWindow(Program& program)
    : Form(program.runtime, {.Caption = "Skyglass list",
                             .Client = {3975, 3855},
                             .Border = FormBorder::fixed_tool_window,
                             .MinButton = false,
                             .ShowInTaskbar = false,
                             .CentredOnScreen = true,
                             .HasIcon = false}),
      Form1(program.Form1),
      Form2(program.Form2),
      Form4(program.Form4) {
    QueryUnload.connect(this, &CameraListWindow::Form_QueryUnload);
    List1.Click.connect(this, &CameraListWindow::List1_Click);
    Timer1.Tick.connect(this, &CameraListWindow::Timer1_Timer);
    Command1.Click.connect(this, &CameraListWindow::Command1_Click);
    Command3.Click.connect(this, &CameraListWindow::Command3_Click);
    Command2.Click.connect(this, &CameraListWindow::Command2_Click);
    List1.DeleteKey.connect(this, &CameraListWindow::Command2_Click);
    Command4.Click.connect(this, &CameraListWindow::Command4_Click);
}

catalogue::SelectorLists CameraListWindow::selector_lists() {
    return {.titles = List1, .main_selector = Form1->Combo1, .fullscreen_selector = Form2->Combo1};
}

void CameraListWindow::List1_Click() {
    attempt([this] { Form1->Combo1.Text = Form1->Combo1.List(List1.ListIndex); });
}

void CameraListWindow::Timer1_Timer() {
    if (List1.ListIndex == -1)
        List1.ListIndex = Form1->Combo1.ListIndex;
}

void CameraListWindow::add_camera(const std::string& title, const std::string& url) {
    Form4->Text1.Text = title;
    Form4->Text2.Text = url;
    Form4->Label3.Caption = editor_mode::add;
    Form4->Show();
}

void CameraListWindow::Command1_Click() {
    add_camera("", "");
}

void CameraListWindow::Command3_Click() {
    Form4->Text1.Text = List1.List(List1.ListIndex);
    std::string complaint;
    try {
        if (const auto url = catalogue::find_url(runtime.files(), List1.List(List1.ListIndex)))
            Form4->Text2.Text = *url;
    } catch (const Failure& failure) {
        if (failure.Kind != FailureKind::past_end_of_file)
            complaint = "The address of '" + List1.Text + "' was not read. " + failure.Description;
    }
    Form4->Label3.Caption = editor_mode::edit;
    Form4->Show();
    if (!complaint.empty())
        Form4->Text2.ShowHint(complaint);
}

void CameraListWindow::Command2_Click() {
    // The selection may move on under the question.
    const std::string title = List1.Text;
    const MessageBoxAnswer answer =
        runtime.MsgBox("Do you really want to remove '" + title + "' from your Skyglass list?",
                       MessageBoxFlag::yes_no + MessageBoxFlag::question, "Remove Skyglass");
    if (answer == MessageBoxAnswer::no)
        return;
    try {
        catalogue::remove_cameras(runtime.files(), title);
    } catch (const Failure& failure) {
        List1.ShowHint("'" + title + "' was not removed. " + failure.Description);
        return;
    }
    catalogue::refill(runtime.files(), selector_lists());
    Form1->Combo1.ListIndex = 0;
}

void CameraListWindow::Command4_Click() {
    Form1->Show();
    Timer1.Enabled = false;
    Hide();
}

void CameraListWindow::Form_QueryUnload(short& Cancel, short /*UnloadMode*/) {
    Cancel = -1;
    Command4_Click();
}

} // namespace lookfar
