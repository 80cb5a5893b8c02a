#include "desktop/accessible/drawn_interface.h"

#include "desktop/style/texts.h"

#include <algorithm>

namespace lookfar::desktop {

bool DrawnInterface::isValid() const {
    return view_ && std::ranges::count(view_->controls(), control_) > 0;
}

std::optional<ReadableControl> DrawnInterface::readable() const {
    return isValid() ? readable_control(*control_) : std::nullopt;
}

std::string DrawnInterface::name() const {
    const auto control = readable();
    return control && control_->Visible ? control->name : std::string();
}

QAccessible::Role DrawnInterface::role() const {
    const auto control = readable();
    return control ? control->role : QAccessible::StaticText;
}

void* DrawnInterface::interface_cast(QAccessible::InterfaceType type) {
    const bool is_text = type == QAccessible::TextInterface && role() == QAccessible::StaticText;
    return is_text ? static_cast<QAccessibleTextInterface*>(this) : nullptr;
}

QAccessibleInterface* DrawnInterface::parent() const {
    return QAccessible::queryAccessibleInterface(view_);
}

QString DrawnInterface::text(QAccessible::Text kind) const {
    return kind == QAccessible::Name ? shown_text(name()) : QString();
}

QRect DrawnInterface::rect() const {
    if (!isValid())
        return {};
    const QRect area = view_->drawn().area_of(*control_).toAlignedRect();
    return {view_->mapToGlobal(area.topLeft()), area.size()};
}

QAccessible::State DrawnInterface::state() const {
    QAccessible::State state;
    state.readOnly = true;
    state.invalid = !isValid();
    state.invisible = name().empty() || !view_->isVisible();
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
