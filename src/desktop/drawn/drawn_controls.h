#pragma once

#include "desktop/drawn/drawn_control.h"
#include "desktop/drawn/scaled_pictures.h"

#include <QImage>
#include <QPointF>
#include <QRect>
#include <QRegion>

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

class QPainter;
class QPalette;

namespace lookfar {
class Form;
}

namespace lookfar::desktop {

/// The controls that a window draws itself: where they were shown last, what must be painted
/// again, and which of them lies under a point.
class DrawnControls {
  public:
    explicit DrawnControls(Form& form) : form_(form) {}

    /// Takes over how the control is shown now. Gives back what must be painted again, which is
    /// nothing for a control that was and is hidden.
    QRegion synchronise(Control& control);
    /// Takes over which pictures were edited in place. Gives back what must be painted again.
    QRegion take_edited_pictures();
    /// An element is about to go; nothing happens for one that is not drawn.
    void forget(const Element& element);

    /// Draws the part of the window that lies in the region, back to front, each control as far as
    /// it is painted again when it changes. The painter is left without a clip.
    void paint(QPainter& painter, const QRegion& region, const QPalette& palette);

    /// The frontmost visible control under the point that takes the mouse.
    std::optional<DrawnControl> mouse_target(const QPointF& point) const;
    /// The tooltip of the frontmost visible control under the point that has one.
    std::string tool_tip(const QPointF& point) const;

    /// The labels and pictures that assistive technology reads, front to back, hidden ones too.
    std::vector<DrawnControl> readable() const;

    /// What the texts of the visible labels cover.
    QRegion captions() const;

    /// The pictures as they are painted; dropped while the window is hidden.
    ScaledPictures& pictures() { return pictures_; }

  private:
    void paint_area(QPainter& painter, const QRect& area, const QPalette& palette);
    std::optional<DrawnControl>
    frontmost_at(const QPointF& point,
                 const std::function<bool(const DrawnControl&)>& is_wanted) const;

    struct Shown {
        QRect area;
        PictureReference picture;
        std::uint64_t revision = 0;
    };

    Form& form_;
    std::unordered_map<const Element*, Shown> shown_;
    ScaledPictures pictures_;
};

} // namespace lookfar::desktop
