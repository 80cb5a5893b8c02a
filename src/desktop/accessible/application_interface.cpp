#include "desktop/accessible/application_interface.h"

#include <algorithm>

namespace lookfar::desktop {

std::vector<QAccessibleInterface*> ApplicationInterface::windows() const {
    std::vector<QAccessibleInterface*> windows;
    for (int index = 0; index < QAccessibleApplication::childCount(); ++index) {
        QAccessibleInterface* const window = QAccessibleApplication::child(index);
        if (window && !window->state().invisible)
            windows.push_back(window);
    }
    return windows;
}

int ApplicationInterface::childCount() const {
    return static_cast<int>(windows().size());
}

QAccessibleInterface* ApplicationInterface::child(int index) const {
    const auto shown = windows();
    const auto place = static_cast<std::size_t>(index);
    return place < shown.size() ? shown[place] : nullptr;
}

int ApplicationInterface::indexOfChild(const QAccessibleInterface* wanted) const {
    const auto shown = windows();
    const auto found = std::ranges::find(shown, wanted);
    return found == shown.end() ? -1 : static_cast<int>(found - shown.begin());
}

} // namespace lookfar::desktop
