#pragma once

#include "runtime/controls/control.h"
#include "runtime/pictures/picture.h"

#include <string>

namespace lookfar {

/// The design values of an image.
struct ImageDesign {
    PictureReference Picture = {};
    /// The design picture once more, with more pixels, for screens that have more of them; may be
    /// none.
    PictureReference FinePicture = {};
    Bounds At = {};
    bool Visible = true;
    /// Whether nobody ever sees or hears of the image.
    bool IsNeverShown = false;
    bool Stretch = false;
    std::string ToolTipText = {};
    /// What assistive technology calls the image.
    std::string AccessibleName = {};
};

/// A picture on a window. With `Stretch` it is scaled into the control's rectangle; without,
/// the control takes the picture's natural size, fifteen twips a pixel, as soon as it gets a
/// picture or loses its stretch.
class Image : public ControlOf<Image, ImageDesign>, public MouseEvents {
  public:
    Image(Form& owner, const ImageDesign& design);

    Property<PictureReference> Picture;
    Property<bool> Stretch;
    Property<std::string> AccessibleName;

  private:
    void size_to_picture();
};

/// The design values of a picture box.
struct PictureBoxDesign {
    Bounds At = {};
    bool Visible = true;
};

/// A control that holds a picture to work on.
class PictureBox : public ControlOf<PictureBox, PictureBoxDesign>, public MouseEvents {
  public:
    PictureBox(Form& owner, const PictureBoxDesign& design);

    Property<PictureReference> Picture;
};

} // namespace lookfar
