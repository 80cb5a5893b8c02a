#pragma once

#include "desktop/drawn/drawn_control.h"
#include "desktop/drawn/scaled_pictures.h"

#include <QImage>
#include <QPointF>
#include <QRect>
#include <QRegion>

#include <cstdint>
#include <functional>
#include <string_view>
#include <unordered_map>

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
    QRegion show_edited_pictures();
    /// An element is about to go; nothing happens for one that is not drawn.
    void forget(const Element& element);

    /// Scales the visible pictures that have a part in the region, ahead of their painting in so
    /// many pixels of the screen to a logical one.
    void prepare_pictures(const QRegion& region, const QPalette& palette, double pixel_ratio);
    /// Draws the part of the window that lies in the region, back to front, each control as far as
    /// it is painted again when it changes. The painter is left without a clip.
    void paint(QPainter& painter, const QRegion& region, const QPalette& palette);

    /// The frontmost visible control under the point that takes the mouse; null where there is
    /// none.
    MouseEvents* mouse_target(const QPointF& point) const;
    /// The tooltip of the frontmost visible control under the point that has one.
    std::string_view tool_tip(const QPointF& point) const;

    /// Where a control was shown last, or would be if it were not hidden, in logical pixels; empty
    /// for one that is not drawn, or whose window was never shown.
    QRectF area_of(const Control& control) const;

    /// What the texts of the visible labels cover.
    QRegion captions() const;

    /// The pictures as they are painted; dropped while the window is hidden.
    ScaledPictures& pictures() { return pictures_; }

  private:
    void paint_area(QPainter& painter, const QRect& area, const QPalette& palette);
    const DrawnControl*
    frontmost_at(const QPointF& point,
                 const std::function<bool(const DrawnControl&)>& is_wanted) const;

    struct Shown {
        DrawnControl drawn;
        /// What is painted again when the control changes; empty while it is hidden.
        QRect painted;
        std::uint64_t revision = 0;
    };

    Form& form_;
    std::unordered_map<const Element*, Shown> shown_;
    ScaledPictures pictures_;
};

} // namespace lookfar::desktop
