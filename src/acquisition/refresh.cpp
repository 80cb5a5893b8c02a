#include "acquisition/main_window.h"

#include "catalogue/list_file.h"
#include "file_numbers.h"
#include "pipeline/fullscreen_window.h"

namespace lookfar {

void MainWindow::Timer1_Timer() {
    Form2->Image2.Visible = true;
    attempt([this] {
        Form2->Picture1.Picture = ImagNT1.Picture;
        look_up_selected_camera();
        Image1.Visible = true;
        GetRESOURCE(Text3.Text);
        MousePointer = MousePointer::standard;
        Form2->Label8.Caption = "0";
    });
}

void MainWindow::look_up_selected_camera() {
    // An empty list would otherwise find its empty selection in every blank line.
    if (Form2->Combo1.ListIndex == -1)
        throw Failure(FailureKind::no_such_entry, "No camera is selected.");
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
