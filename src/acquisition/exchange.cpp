#include "acquisition/main_window.h"

#include "catalogue/windows/camera_editor.h"
#include "catalogue/windows/camera_list_window.h"

namespace lookfar {

/// Nothing while there is none, and while an error stands in its place.
PictureReference MainWindow::shown_picture() const {
    return ImagNT1.Visible ? ImagNT1.Picture.get() : nullptr;
}

void MainWindow::Form_CopyKey() {
    if (const auto picture = shown_picture())
        runtime.CopyPicture(*picture);
}

void MainWindow::ImagNT1_DragOut() {
    if (const auto picture = shown_picture())
        runtime.DragPicture(picture);
}

/// The list opens too, as before every camera that is added. What is being typed in the editor
/// stays: a new address fills only a box that is empty.
void MainWindow::Form_AddressGiven(const std::string& address, const std::string& title) {
    if (!Form4->Visible) {
        Command1_Click();
        Form3->add_camera(title, address);
        Form4->Text1.SetFocus();
        return;
    }
    Form4->Show();
    if (Form4->Text2.Text != "") {
        Form4->Text2.ShowHint(
            "Save this camera or cancel it, and then give the new address again.");
        return;
    }
    Form4->Text2.Text = address;
    if (Form4->Text1.Text == "")
        Form4->Text1.Text = title;
    Form4->Text1.SetFocus();
}

} // namespace lookfar
