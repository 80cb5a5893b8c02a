#include "desktop/accessible/accessibility.h"

#include "desktop/accessible/native_interfaces.h"
#include "desktop/accessible/window_interface.h"
#include "desktop/native/owned_by_qt.h"
#include "desktop/window/window_view.h"

#include <QAccessibleObject>
#include <QCoreApplication>

#include <algorithm>
#include <vector>

namespace lookfar::desktop {

namespace {

/// The program, with the windows that can be seen. Qt's own interface would list those that are
/// hidden too.
class ApplicationInterface : public QAccessibleApplication {
  public:
    int childCount() const override { return static_cast<int>(windows().size()); }

    QAccessibleInterface* child(int index) const override {
        const auto shown = windows();
        const auto place = static_cast<std::size_t>(index);
        return place < shown.size() ? shown[place] : nullptr;
    }

    int indexOfChild(const QAccessibleInterface* wanted) const override {
        const auto shown = windows();
        const auto found = std::ranges::find(shown, wanted);
        return found == shown.end() ? -1 : static_cast<int>(found - shown.begin());
    }

  private:
    std::vector<QAccessibleInterface*> windows() const {
        std::vector<QAccessibleInterface*> windows;
        for (int index = 0; index < QAccessibleApplication::childCount(); ++index) {
            QAccessibleInterface* const window = QAccessibleApplication::child(index);
            if (window && !window->state().invisible)
                windows.push_back(window);
        }
        return windows;
    }
};

QAccessibleInterface* make_interface(const QString& /*class_name*/, QObject* object) {
    if (auto* const view = dynamic_cast<WindowView*>(object))
        return owned_by_qt<WindowInterface>(*view);
    if (object == QCoreApplication::instance())
        return owned_by_qt<ApplicationInterface>();
    return make_native_interface(object);
}

} // namespace

void make_windows_readable() {
    QAccessible::installFactory(make_interface);
}

} // namespace lookfar::desktop
