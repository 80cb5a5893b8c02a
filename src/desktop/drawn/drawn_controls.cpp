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
QRect painted_area(const Control& control, QRectF area) {
    if (const auto* const label = dynamic_cast<const Label*>(&control))
        area |= caption_area(*label);
    return area.toAlignedRect().adjusted(-1, -1, 1, 1);
}

} // namespace

QRegion DrawnControls::synchronise(Control& control) {
    auto drawn = drawn_control(control);
    if (!drawn)
        return {};
    if (!control.Visible)
        drawn->picture = nullptr;
    if (!drawn->picture)
        pictures_.drop(control);
    Shown& shown = shown_[&control];
    const QRect before = shown.painted;
    shown.painted = control.Visible ? painted_area(control, drawn->area) : QRect();
    shown.revision = drawn->picture ? drawn->picture->revision() : 0;
    shown.drawn = *std::move(drawn);
    return QRegion(before) + shown.painted;
}

QRegion DrawnControls::show_edited_pictures() {
    QRegion region;
    for (Shown& shown : std::views::values(shown_)) {
        const PictureReference& picture = shown.drawn.picture;
        if (!picture || picture->revision() == shown.revision)
            continue;
        shown.revision = picture->revision();
        region += shown.painted;
    }
    return region;
}

void DrawnControls::forget(const Element& element) {
    shown_.erase(&element);
    pictures_.drop(element);
}

/// They are drawn onto a single pixel, and of that only the scaling takes time.
void DrawnControls::prepare_pictures(const QRegion& region, const QPalette& palette,
                                     double pixel_ratio) {
    QImage pixel(1, 1, QImage::Format_RGB32);
    pixel.setDevicePixelRatio(pixel_ratio);
    QPainter painter(&pixel);
    ControlPainter control_painter(painter, palette, pictures_);
    for (Control* const control : form_.controls()) {
        const auto shown = shown_.find(control);
        if (shown != shown_.end() && shown->second.drawn.picture &&
            region.intersects(shown->second.painted))
            control->accept(control_painter);
    }
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
        if (!control->Visible || shown == shown_.end() || !shown->second.painted.intersects(area))
            continue;
        painter.setClipRect(shown->second.painted & area);
        control->accept(control_painter);
    }
}

const DrawnControl*
DrawnControls::frontmost_at(const QPointF& point,
                            const std::function<bool(const DrawnControl&)>& is_wanted) const {
    for (const Control* const control : form_.controls()) {
        const auto shown = shown_.find(control);
        if (!control->Visible || shown == shown_.end())
            continue;
        const DrawnControl& drawn = shown->second.drawn;
        if (is_wanted(drawn) && drawn.area.contains(point))
            return &drawn;
    }
    return nullptr;
}

MouseEvents* DrawnControls::mouse_target(const QPointF& point) const {
    const auto* const drawn =
        frontmost_at(point, [](const DrawnControl& each) { return each.mouse != nullptr; });
    return drawn ? drawn->mouse : nullptr;
}

std::string_view DrawnControls::tool_tip(const QPointF& point) const {
    const auto* const drawn =
        frontmost_at(point, [](const DrawnControl& each) { return !each.tool_tip.empty(); });
    return drawn ? drawn->tool_tip : std::string_view();
}

QRectF DrawnControls::area_of(const Control& control) const {
    const auto shown = shown_.find(&control);
    return shown == shown_.end() ? QRectF() : shown->second.drawn.area;
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

} // namespace lookfar::desktop
