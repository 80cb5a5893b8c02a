#include "acquisition/main_window.h"

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

} // namespace lookfar
