#include "acquisition/main_window.h"

#include "catalogue/list_file.h"
#include "file_numbers.h"
#include "pipeline/fullscreen_window.h"

namespace lookfar {

void MainWindow::Timer1_Timer() {
    Form2->Image2.Visible = true;
    attempt([this] {
        Form2->Picture1.Picture = ImagNT1.Picture;
        if (Form2->Combo1.ListIndex == -1)
            return tell_that_nothing_is_selected();
        look_up_selected_camera();
        Image1.Visible = true;
        GetRESOURCE(Text3.Text);
        MousePointer = MousePointer::standard;
        Form2->Label8.Caption = "0";
    });
}

/// An error that is shown already, such as why there is no list, says more.
void MainWindow::tell_that_nothing_is_selected() {
    if (!Label2.Visible)
        show_error({FailureKind::no_such_entry,
                    "No camera is selected. Choose one, or add one to the list."});
}

void MainWindow::look_up_selected_camera() {
    NumberedFiles& files = runtime.files();
    catalogue::scan_lines(files, [this, &files](const std::string& line) {
        if (line != Form2->Combo1.Text)
            return;
        Form2->Label5.Caption = line;
        Form2->Label1.Caption = line;
        Form2->Label4.Caption = "Screenshot taken: " + runtime.TimeOfDay() + " ( " +
                                Form2->Label7.Caption + " Sec/Pic )";
        Text3.Text = files.LineInput(file_number::list);
    });
}

void MainWindow::Command2_Click() {
    Timer1_Timer();
}

void MainWindow::ImgReload_Click() {
    Command2_Click();
}

} // namespace lookfar
