#include "desktop/drawn/mouse_router.h"

#include "desktop/drawn/drawn_controls.h"
#include "desktop/input/user_actions.h"
#include "runtime/form.h"

#include <QApplication>

#include <optional>
#include <utility>

namespace lookfar::desktop {

namespace {

/// Nothing for a button that handlers don't know.
std::optional<MouseButton> known_button(Qt::MouseButton button) {
    switch (button) {
    case Qt::LeftButton:
        return MouseButton::left;
    case Qt::RightButton:
        return MouseButton::right;
    case Qt::MiddleButton:
        return MouseButton::middle;
    default:
        return std::nullopt;
    }
}

} // namespace

MouseEvents& MouseRouter::target_at(const QPointF& point) const {
    MouseEvents* const target = drawn_.mouse_target(point);
    return target ? *target : form_;
}

void MouseRouter::press(Qt::MouseButton button, const QPointF& point) {
    MouseEvents& target = target_at(point);
    const auto known = known_button(button);
    if (!known)
        return;
    if (button == Qt::LeftButton) {
        pressed_ = &target;
        pressed_at_ = point;
    }
    actions_.deliver(form_, [&target, known] { target.MouseDown.raise(*known); });
}

void MouseRouter::release(Qt::MouseButton button, const QPointF& point) {
    if (button != Qt::LeftButton)
        return;
    MouseEvents& target = target_at(point);
    const bool is_click = std::exchange(pressed_, nullptr) == &target;
    if (is_click)
        actions_.deliver(form_, [&target] { target.Click.raise(); });
}

void MouseRouter::double_click(Qt::MouseButton button, const QPointF& point) {
    MouseEvents& target = target_at(point);
    if (button != Qt::LeftButton || !target.DblClick.is_connected()) {
        press(button, point);
        return;
    }
    actions_.deliver(form_, [&target] { target.DblClick.raise(); });
}

void MouseRouter::move(Qt::MouseButtons held, const QPointF& point) {
    MouseEvents& target = target_at(point);
    actions_.deliver(form_, [&target] { target.MouseMove.raise(); });
    if (held.testFlag(Qt::LeftButton) && pressed_)
        begin_drag(point);
}

void MouseRouter::begin_drag(const QPointF& point) {
    if ((point - pressed_at_).manhattanLength() < QApplication::startDragDistance())
        return;
    MouseEvents& target = target_at(pressed_at_);
    if (pressed_ != &target || !target.DragOut.is_connected())
        return;
    pressed_ = nullptr;
    actions_.deliver(form_, [&target] { target.DragOut.raise(); });
}

} // namespace lookfar::desktop
