#include "catalogue/windows/camera_editor.h"

#include "acquisition/main_window.h"
#include "catalogue/windows/camera_list_window.h"
#include "pipeline/fullscreen_window.h"
#include "program.h"
#include "runtime/message_box.h"

#include <string>

namespace lookfar {

namespace {

/// A line end of the list file would part a record. A lone LF ends no line.
std::string on_one_line(const TextBox& box) {
    std::string line;
    char before = '\0';
    for (const char character : box.Text.get()) {
        const bool goes_on_with_line_end = before == '\r' && character == '\n';
        if (character == '\r')
            line += box.Design.LineBreaks == LineBreaks::blanks ? " " : "";
        else if (!goes_on_with_line_end)
            line += character;
        before = character;
    }
    return line;
}

} // namespace

CameraEditor::CameraEditor(Program& program)
    : Form(program.runtime, {.Caption = "Skyglass",
                             .Client = {4710, 1935},
                             .Border = FormBorder::fixed_tool_window,
                             .ControlBox = false,
                             .MinButton = false,
                             .ShowInTaskbar = false,
                             .CentredOnScreen = true,
                             .HasIcon = false}),
      Form1(program.Form1),
      Form2(program.Form2),
      Form3(program.Form3) {
    QueryUnload.connect(this, &CameraEditor::Form_QueryUnload);
    Command1.Click.connect(this, &CameraEditor::Command1_Click);
    Command2.Click.connect(this, &CameraEditor::Command2_Click);
}

void CameraEditor::Command1_Click() {
    attempt([this] { Text1.SetFocus(); });
    // A blank title line would break the file's pairs.
    if (Text1.Text == "") {
        Text1.ShowHint("A camera needs a title.");
        return;
    }
    std::string complaint;
    try {
        if (catalogue::save_camera(runtime.files(), what_is_saved()) ==
            catalogue::ChangeOutcome::refused)
            return;
    } catch (const Failure& failure) {
        complaint = "'" + Text1.Text.get() + "' was not saved. " + failure.Description;
        // The other program will be done soon, and what was typed can be saved then.
        if (failure.Kind == FailureKind::file_in_use) {
            Show();
            Text1.ShowHint(complaint);
            return;
        }
        Hide();
    }
    attempt_each({
        [&] { catalogue::refill(runtime.files(), Form3->selector_lists()); },
        [&] { Form1->Combo1.ListIndex = 0; },
        [&] { Form2->Combo1.ListIndex = 0; },
        [&] { Form3->List1.Text = on_one_line(Text1); },
        [&] { Form3->Show(); },
    });
    if (!complaint.empty())
        Form3->List1.ShowHint(complaint);
}

catalogue::Save CameraEditor::what_is_saved() {
    catalogue::Save save{.camera = {.title = on_one_line(Text1), .url = on_one_line(Text2)},
                         .replaced_title = std::nullopt,
                         .may_overwrite = [this] { return may_overwrite(); },
                         .lines_are_copied = [this] { Hide(); }};
    if (Label3.Caption == editor_mode::edit)
        save.replaced_title = Form3->List1.List(Form3->List1.ListIndex);
    return save;
}

bool CameraEditor::may_overwrite() {
    const MessageBoxAnswer answer = runtime.MsgBox(
        "A cam with this description already exists! Do you want to overwrite it?",
        MessageBoxFlag::yes_no + MessageBoxFlag::question + MessageBoxFlag::second_button_default);
    if (answer == MessageBoxAnswer::no)
        return false;
    Hide();
    return true;
}

void CameraEditor::Command2_Click() {
    Text1.SetFocus();
    Form3->Show();
    Hide();
}

/// Ok and Cancel are the only ways out.
void CameraEditor::Form_QueryUnload(short& Cancel, short /*UnloadMode*/) {
    Cancel = -1;
}

} // namespace lookfar
