#include "desktop/accessible/drawn_interface.h"

#include "desktop/style/texts.h"

namespace lookfar::desktop {

std::optional<DrawnControl> DrawnInterface::find() const {
    return view_ ? view_->readable_control(*control_) : std::nullopt;
}

void* DrawnInterface::interface_cast(QAccessible::InterfaceType type) {
    const bool is_text = type == QAccessible::TextInterface && role() == QAccessible::StaticText;
    return is_text ? static_cast<QAccessibleTextInterface*>(this) : nullptr;
}

QAccessibleInterface* DrawnInterface::parent() const {
    return QAccessible::queryAccessibleInterface(view_);
}

QString DrawnInterface::text(QAccessible::Text kind) const {
    const auto drawn = find();
    const bool is_shown = drawn && drawn->control->Visible;
    return is_shown && kind == QAccessible::Name ? shown_text(drawn->name) : QString();
}

QRect DrawnInterface::rect() const {
    const auto drawn = find();
    if (!drawn)
        return {};
    const QRect area = drawn->area.toAlignedRect();
    return {view_->mapToGlobal(area.topLeft()), area.size()};
}

QAccessible::Role DrawnInterface::role() const {
    const auto drawn = find();
    const bool is_picture = drawn && drawn->role == DrawnControl::Role::picture;
    return is_picture ? QAccessible::Graphic : QAccessible::StaticText;
}

QAccessible::State DrawnInterface::state() const {
    const auto drawn = find();
    QAccessible::State state;
    state.readOnly = true;
    state.invalid = !drawn;
    state.invisible =
        !drawn || !drawn->control->Visible || drawn->name.empty() || !view_->isVisible();
    return state;
}

int DrawnInterface::characterCount() const {
    return static_cast<int>(text(QAccessible::Name).size());
}

QString DrawnInterface::text(int start, int end) const {
    return text(QAccessible::Name).mid(start, end - start);
}

QString DrawnInterface::attributes(int /*offset*/, int* start, int* end) const {
    *start = 0;
    *end = characterCount();
    return {};
}

void DrawnInterface::selection(int /*index*/, int* start, int* end) const {
    *start = 0;
    *end = 0;
}

} // namespace lookfar::desktop
