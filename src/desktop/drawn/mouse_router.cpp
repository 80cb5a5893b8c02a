#include "desktop/drawn/mouse_router.h"

#include "desktop/drawn/drawn_controls.h"
#include "desktop/window/windows.h"
#include "runtime/form.h"

#include <utility>

namespace lookfar::desktop {

namespace {

/// 0 for a button that handlers don't know.
short button_code(Qt::MouseButton button) {
    switch (button) {
    case Qt::LeftButton:
        return mouse_button::left;
    case Qt::RightButton:
        return mouse_button::right;
    case Qt::MiddleButton:
        return mouse_button::middle;
    default:
        return 0;
    }
}

} // namespace

MouseEvents& MouseRouter::target_at(const QPointF& point) const {
    const auto drawn = drawn_.mouse_target(point);
    return drawn ? *drawn->mouse : form_;
}

void MouseRouter::press(Qt::MouseButton button, const QPointF& point) {
    MouseEvents& target = target_at(point);
    const short code = button_code(button);
    if (code == 0)
        return;
    if (button == Qt::LeftButton)
        pressed_ = &target;
    windows_.deliver(form_.runtime, [&target, code] { target.MouseDown.raise(code); });
}

void MouseRouter::release(Qt::MouseButton button, const QPointF& point) {
    if (button != Qt::LeftButton)
        return;
    MouseEvents& target = target_at(point);
    const bool is_click = std::exchange(pressed_, nullptr) == &target;
    if (is_click)
        windows_.deliver(form_.runtime, [&target] { target.Click.raise(); });
}

void MouseRouter::double_click(Qt::MouseButton button, const QPointF& point) {
    if (button != Qt::LeftButton) {
        press(button, point);
        return;
    }
    MouseEvents& target = target_at(point);
    windows_.deliver(form_.runtime, [&target] { target.DblClick.raise(); });
}

void MouseRouter::move(const QPointF& point) {
    MouseEvents& target = target_at(point);
    windows_.deliver(form_.runtime, [&target] { target.MouseMove.raise(); });
}

} // namespace lookfar::desktop
