#include "runtime/controls/images.h"

namespace lookfar {

Image::Image(Form& owner, const ImageDesign& design)
    : ControlOf(owner, design),
      Picture(*this, design.Picture, {.changed = [this] { size_to_picture(); }}),
      Stretch(*this, design.Stretch, {.changed = [this] { size_to_picture(); }}),
      AccessibleName(*this, design.AccessibleName) {}

void Image::size_to_picture() {
    if (Stretch || !Picture.get())
        return;
    Width = static_cast<float>(Picture.get()->width()) * twips_per_pixel;
    Height = static_cast<float>(Picture.get()->height()) * twips_per_pixel;
}

PictureBox::PictureBox(Form& owner, const PictureBoxDesign& design)
    : ControlOf(owner, design), Picture(*this, nullptr) {}

} // namespace lookfar
