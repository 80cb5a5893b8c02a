#include "desktop/accessible/accessibility.h"

#include "desktop/accessible/native_interfaces.h"
#include "desktop/accessible/window_interface.h"
#include "desktop/native/label_tab_stop.h"
#include "desktop/native/status_text.h"
#include "desktop/native/up_down_arrows.h"
#include "desktop/window/window_view.h"

#include <QAccessible>

#include <memory>

namespace lookfar::desktop {

namespace {

/// Qt takes the interface over.
QAccessibleInterface* make_interface(const QString& /*class_name*/, QObject* object) {
    if (auto* const view = dynamic_cast<WindowView*>(object))
        return std::make_unique<WindowInterface>(*view).release();
    if (auto* const stop = dynamic_cast<LabelTabStop*>(object))
        return std::make_unique<LabelTabStopInterface>(*stop).release();
    if (auto* const text = dynamic_cast<StatusText*>(object))
        return std::make_unique<StatusTextInterface>(*text).release();
    if (auto* const arrows = dynamic_cast<UpDownArrows*>(object))
        return std::make_unique<UpDownInterface>(*arrows).release();
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
