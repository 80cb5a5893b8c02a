#include "desktop/drawn/drawn_controls.h"

#include "desktop/drawn/control_painter.h"
#include "desktop/drawn/label_caption.h"
#include "desktop/style/colours.h"
#include "desktop/style/fonts.h"
#include "runtime/controls/label.h"
#include "runtime/form.h"

#include <QPainter>

#include <ranges>
#include <utility>

namespace lookfar::desktop {

namespace {

QRectF caption_area(const Label& label) {
    return is_symbol_font(label.Design.Font) ? QRectF() : LabelCaption(label).extent();
}

/// All that a control can be painted on: whole pixels, with one more around for smooth edges and
/// rims.
QRect painted_area(const DrawnControl& drawn) {
    QRectF area = drawn.area;
    if (const auto* const label = dynamic_cast<const Label*>(drawn.control))
        area |= caption_area(*label);
    return area.toAlignedRect().adjusted(-1, -1, 1, 1);
}

} // namespace

QRegion DrawnControls::synchronise(Control& control) {
    const auto drawn = drawn_control(control);
    if (!drawn)
        return {};
    if (!drawn->picture || !control.Visible)
        pictures_.drop(control);
    Shown now;
    if (control.Visible)
        now = {.area = painted_area(*drawn),
               .picture = drawn->picture,
               .revision = drawn->picture ? drawn->picture->revision() : 0};
    const Shown before = std::exchange(shown_[&control], now);
    return QRegion(before.area) + now.area;
}

QRegion DrawnControls::take_edited_pictures() {
    QRegion region;
    for (Shown& shown : std::views::values(shown_)) {
        if (!shown.picture || shown.picture->revision() == shown.revision)
            continue;
        shown.revision = shown.picture->revision();
        region += shown.area;
    }
    return region;
}

void DrawnControls::forget(const Element& element) {
    shown_.erase(&element);
    pictures_.drop(element);
}

/// Rectangle by rectangle: within a region of another shape Qt paints a picture span by span and
/// wakes its threads, which takes longer than the painting.
void DrawnControls::paint(QPainter& painter, const QRegion& region, const QPalette& palette) {
    for (const QRect& area : region)
        paint_area(painter, area, palette);
    painter.setClipping(false);
}

void DrawnControls::paint_area(QPainter& painter, const QRect& area, const QPalette& palette) {
    painter.setClipRect(area);
    painter.fillRect(area, screen_colour(form_.Design.BackColor, palette));
    ControlPainter control_painter(painter, palette, pictures_);
    for (Control* const control : std::views::reverse(form_.controls())) {
        const auto shown = shown_.find(control);
        if (!control->Visible || shown == shown_.end() || !shown->second.area.intersects(area))
            continue;
        painter.setClipRect(shown->second.area & area);
        control->accept(control_painter);
    }
}

std::optional<DrawnControl>
DrawnControls::frontmost_at(const QPointF& point,
                            const std::function<bool(const DrawnControl&)>& is_wanted) const {
    for (Control* const control : form_.controls()) {
        if (!control->Visible)
            continue;
        auto drawn = drawn_control(*control);
        if (drawn && is_wanted(*drawn) && drawn->area.contains(point))
            return drawn;
    }
    return std::nullopt;
}

std::optional<DrawnControl> DrawnControls::mouse_target(const QPointF& point) const {
    return frontmost_at(point, [](const DrawnControl& drawn) { return drawn.mouse != nullptr; });
}

std::string DrawnControls::tool_tip(const QPointF& point) const {
    const auto drawn =
        frontmost_at(point, [](const DrawnControl& each) { return !each.tool_tip.empty(); });
    return drawn ? drawn->tool_tip : std::string();
}

QRegion DrawnControls::captions() const {
    QRegion captions;
    for (const Control* const control : form_.controls()) {
        const auto* const label = dynamic_cast<const Label*>(control);
        if (label && label->Visible)
            captions += caption_area(*label).toAlignedRect();
    }
    return captions;
}

std::vector<DrawnControl> DrawnControls::readable() const {
    std::vector<DrawnControl> readable;
    for (Control* const control : form_.controls()) {
        auto drawn = drawn_control(*control);
        if (drawn && drawn->is_readable())
            readable.push_back(*std::move(drawn));
    }
    return readable;
}

} // namespace lookfar::desktop
