#include "desktop/accessible/change_reporter.h"

#include "desktop/accessible/announcement.h"
#include "desktop/accessible/window_interface.h"
#include "desktop/style/texts.h"
#include "desktop/window/window_view.h"

#include <QAccessible>

#include <utility>

namespace lookfar::desktop {

namespace {

void tell(QAccessibleInterface& object, QAccessible::Event kind) {
    QAccessibleEvent event(&object, kind);
    QAccessible::updateAccessibility(&event);
}

void tell_change(QAccessibleInterface& object, const QString& before, const QString& now) {
    if (before.isEmpty())
        tell(object, QAccessible::ObjectShow);
    if (now.isEmpty())
        tell(object, QAccessible::ObjectHide);
    else
        tell(object, QAccessible::NameChanged);
}

} // namespace

void ChangeReporter::synchronise(Control& control) {
    if (!QAccessible::isActive())
        return;
    const auto drawn = view_.readable_control(control);
    if (!drawn)
        return;
    const QString now = control.Visible ? shown_text(drawn->name) : QString();
    const QString before = std::exchange(told_[&control], now);
    if (now == before)
        return;
    auto* const window =
        dynamic_cast<WindowInterface*>(QAccessible::queryAccessibleInterface(&view_));
    QAccessibleInterface& object = *window->interface_of(control);
    tell_change(object, before, now);
    if (!now.isEmpty())
        announce(object, now, drawn->announcement);
}

} // namespace lookfar::desktop
