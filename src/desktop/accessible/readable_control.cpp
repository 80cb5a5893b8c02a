#include "desktop/accessible/readable_control.h"

#include "desktop/style/texts.h"
#include "runtime/controls/images.h"
#include "runtime/controls/label.h"

namespace lookfar::desktop {

namespace {

std::optional<ReadableControl> read(const Label& label) {
    const LabelDesign& design = label.Design;
    if (design.Role != LabelRole::text || design.IsNeverShown)
        return std::nullopt;
    return ReadableControl{.name = name_or(design.AccessibleName, label.Caption),
                           .announcement = design.Announcement};
}

std::optional<ReadableControl> read(const Image& image) {
    if (image.Design.IsNeverShown)
        return std::nullopt;
    return ReadableControl{.role = QAccessible::Graphic,
                           .name = name_or(image.AccessibleName, image.Design.ToolTipText)};
}

} // namespace

std::optional<ReadableControl> readable_control(const Control& control) {
    if (const auto* const label = dynamic_cast<const Label*>(&control))
        return read(*label);
    if (const auto* const image = dynamic_cast<const Image*>(&control))
        return read(*image);
    return std::nullopt;
}

} // namespace lookfar::desktop
