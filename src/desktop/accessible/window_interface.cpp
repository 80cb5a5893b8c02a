#include "desktop/accessible/window_interface.h"

#include "desktop/accessible/drawn_interface.h"
#include "desktop/native/owned_by_qt.h"
#include "desktop/window/window_view.h"

#include <ranges>

namespace lookfar::desktop {

WindowInterface::WindowInterface(WindowView& view)
    : QAccessibleWidget(&view, QAccessible::Window), view_(view) {}

WindowInterface::~WindowInterface() {
    for (const QAccessible::Id identity : std::views::values(drawn_))
        QAccessible::deleteAccessibleInterface(identity);
}

int WindowInterface::childCount() const {
    return QAccessibleWidget::childCount() + static_cast<int>(view_.readable_controls().size());
}

QAccessibleInterface* WindowInterface::child(int index) const {
    const int first_drawn = QAccessibleWidget::childCount();
    if (index < first_drawn)
        return QAccessibleWidget::child(index);
    const auto readable = view_.readable_controls();
    const auto place = static_cast<std::size_t>(index - first_drawn);
    return place < readable.size() ? interface_of(*readable[place].control) : nullptr;
}

int WindowInterface::indexOfChild(const QAccessibleInterface* wanted) const {
    for (int index = 0; index < childCount(); ++index)
        if (child(index) == wanted)
            return index;
    return -1;
}

QAccessibleInterface* WindowInterface::childAt(int x, int y) const {
    for (int index = 0; index < childCount(); ++index) {
        QAccessibleInterface* const found = child(index);
        if (!found->state().invisible && found->rect().contains(x, y))
            return found;
    }
    return nullptr;
}

/// Qt owns a registered interface, and keeps it until it is told to delete it by its identity.
QAccessibleInterface* WindowInterface::interface_of(const Control& control) const {
    const auto [place, is_new] = drawn_.try_emplace(&control);
    if (is_new)
        place->second =
            QAccessible::registerAccessibleInterface(owned_by_qt<DrawnInterface>(view_, control));
    return QAccessible::accessibleInterface(place->second);
}

} // namespace lookfar::desktop
