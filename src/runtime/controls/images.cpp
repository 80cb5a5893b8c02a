#include "runtime/controls/images.h"

#include "runtime/controls/visitor.h"

namespace lookfar {

Image::Image(Form& owner, const ImageDesign& design)
    : BoxControl(owner, design.At, design.Visible),
      Picture(*this, design.Picture, {.changed = [this] { take_natural_size(); }}),
      Stretch(*this, design.Stretch, {.changed = [this] { take_natural_size(); }}),
      AccessibleName(*this, design.AccessibleName),
      FinePicture(design.FinePicture),
      IsNeverShown(design.IsNeverShown),
      ToolTipText(design.ToolTipText) {}

void Image::accept(ControlVisitor& visitor) {
    visitor.visit(*this);
}

void Image::take_natural_size() {
    if (Stretch || !Picture.get())
        return;
    Width = static_cast<float>(Picture.get()->width()) * twips_per_pixel;
    Height = static_cast<float>(Picture.get()->height()) * twips_per_pixel;
}

PictureBox::PictureBox(Form& owner, const PictureBoxDesign& design)
    : BoxControl(owner, design.At, design.Visible), Picture(*this, nullptr) {}

void PictureBox::accept(ControlVisitor& visitor) {
    visitor.visit(*this);
}

} // namespace lookfar
