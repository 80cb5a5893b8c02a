#include "desktop/accessible/change_reporter.h"

#include "desktop/accessible/announcement.h"
#include "desktop/accessible/object_signal.h"
#include "desktop/accessible/window_interface.h"
#include "desktop/native/hint.h"
#include "desktop/native/label_tab_stop.h"
#include "desktop/native/status_text.h"
#include "desktop/style/texts.h"
#include "desktop/window/window_view.h"

#include <QAccessible>

#include <utility>

namespace lookfar::desktop {

namespace {

void report(QAccessibleInterface& object, QAccessible::Event kind) {
    QAccessibleEvent event(&object, kind);
    QAccessible::updateAccessibility(&event);
}

void report_name(QAccessibleInterface& object, const QString& before, const QString& now) {
    if (before.isEmpty())
        report(object, QAccessible::ObjectShow);
    if (now.isEmpty())
        report(object, QAccessible::ObjectHide);
    else
        report(object, QAccessible::NameChanged);
}

} // namespace

void ChangeReporter::control_shown(WindowView& window, Control& control) {
    if (auto* const status_text = dynamic_cast<StatusText*>(window.widget_of(control)))
        report_status_text(*status_text, control);
    else if (auto* const stop = dynamic_cast<LabelTabStop*>(window.widget_of(control)))
        report_tab_stop(*stop, control);
    else if (QAccessible::isActive())
        report_drawn_control(window, control);
}

void ChangeReporter::hint_shown(Hint& hint) {
    announce(*QAccessible::queryAccessibleInterface(&hint), hint.text(), Announcement::assertive);
}

void ChangeReporter::report_drawn_control(WindowView& window, Control& control) {
    const auto drawn = window.readable_control(control);
    if (!drawn)
        return;
    const QString now = control.Visible ? shown_text(drawn->name) : QString();
    const QString before = std::exchange(reported_[&control], now);
    if (now == before)
        return;
    auto* const parent =
        dynamic_cast<WindowInterface*>(QAccessible::queryAccessibleInterface(&window));
    QAccessibleInterface& object = *parent->interface_of(control);
    report_name(object, before, now);
    if (!now.isEmpty())
        announce(object, now, drawn->announcement);
}

void ChangeReporter::report_tab_stop(LabelTabStop& stop, const Control& control) {
    const auto is_open = stop.is_open();
    if (!is_open)
        return;
    const auto [reported, is_first] = open_.try_emplace(&control, *is_open);
    if (!is_first && std::exchange(reported->second, *is_open) != is_open &&
        QAccessible::isActive())
        send_object_signal(*QAccessible::queryAccessibleInterface(&stop),
                           QStringLiteral("StateChanged"), QStringLiteral("expanded"),
                           *is_open ? 1 : 0, {});
}

/// Only announces the text: the change of the widget's name is reported by Qt itself.
void ChangeReporter::report_status_text(StatusText& widget, const Control& control) {
    const QString now = widget.accessibleName();
    if (std::exchange(reported_[&control], now) != now)
        announce(*QAccessible::queryAccessibleInterface(&widget), now, Announcement::polite);
}

} // namespace lookfar::desktop
