#include "desktop/accessible/accessibility.h"

#include "desktop/accessible/application_interface.h"
#include "desktop/accessible/native_interfaces.h"
#include "desktop/accessible/window_interface.h"
#include "desktop/native/label_tab_stop.h"
#include "desktop/native/owned_by_qt.h"
#include "desktop/native/status_text.h"
#include "desktop/native/up_down_arrows.h"
#include "desktop/window/window_view.h"

#include <QAccessible>
#include <QCoreApplication>

namespace lookfar::desktop {

namespace {

QAccessibleInterface* make_interface(const QString& /*class_name*/, QObject* object) {
    if (auto* const view = dynamic_cast<WindowView*>(object))
        return owned_by_qt<WindowInterface>(*view);
    if (auto* const stop = dynamic_cast<LabelTabStop*>(object))
        return owned_by_qt<LabelTabStopInterface>(*stop);
    if (auto* const text = dynamic_cast<StatusText*>(object))
        return owned_by_qt<StatusTextInterface>(*text);
    if (auto* const arrows = dynamic_cast<UpDownArrows*>(object))
        return owned_by_qt<UpDownInterface>(*arrows);
    if (object == QCoreApplication::instance())
        return owned_by_qt<ApplicationInterface>();
    return nullptr;
}

} // namespace

Accessibility::Accessibility() {
    QAccessible::installFactory(make_interface);
}

Accessibility::~Accessibility() {
    QAccessible::removeFactory(make_interface);
}

} // namespace lookfar::desktop
