#include "desktop/accessible/window_interface.h"

#include "desktop/accessible/drawn_interface.h"
#include "desktop/accessible/readable_control.h"
#include "desktop/native/owned_by_qt.h"
#include "desktop/window/window_view.h"

#include <algorithm>
#include <iterator>
#include <ranges>

namespace lookfar::desktop {

WindowInterface::WindowInterface(WindowView& view)
    : QAccessibleWidget(&view, QAccessible::Window), view_(view) {}

WindowInterface::~WindowInterface() {
    for (const QAccessible::Id identity : std::views::values(drawn_))
        QAccessible::deleteAccessibleInterface(identity);
}

std::vector<const Control*> WindowInterface::readable_controls() const {
    std::vector<const Control*> readable;
    std::ranges::copy_if(view_.controls(), std::back_inserter(readable),
                         [](const Control* each) { return readable_control(*each).has_value(); });
    return readable;
}

int WindowInterface::childCount() const {
    return QAccessibleWidget::childCount() + static_cast<int>(readable_controls().size());
}

QAccessibleInterface* WindowInterface::child(int index) const {
    const int first_drawn = QAccessibleWidget::childCount();
    if (index < first_drawn)
        return QAccessibleWidget::child(index);
    const auto readable = readable_controls();
    const auto place = static_cast<std::size_t>(index - first_drawn);
    return place < readable.size() ? interface_of(*readable[place]) : nullptr;
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
