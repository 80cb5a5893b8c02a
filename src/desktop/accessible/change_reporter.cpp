#include "desktop/accessible/change_reporter.h"

#include "desktop/accessible/readable_control.h"
#include "desktop/accessible/window_interface.h"
#include "desktop/native/hint.h"
#include "desktop/native/label_tab_stop.h"
#include "desktop/style/texts.h"
#include "desktop/window/window_view.h"
#include "desktop/window/windows.h"

#include <QAccessible>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QVariantMap>

#include <utility>

namespace lookfar::desktop {

namespace {

void report(QAccessibleInterface& object, QAccessible::Event kind) {
    QAccessibleEvent event(&object, kind);
    QAccessible::updateAccessibility(&event);
}

/// Sends a signal of an object, with a value and a text, on the accessibility bus: one that Qt has
/// no event for, or an event that it does not pass on. It goes out over the connection that Qt
/// itself holds to that bus, from the path that Qt gives the object there.
void send_object_signal(QAccessibleInterface& object, const QString& signal, const QString& detail,
                        int value, const QString& text) {
    QDBusMessage message = QDBusMessage::createSignal(
        QStringLiteral("/org/a11y/atspi/accessible/%1").arg(QAccessible::uniqueId(&object)),
        QStringLiteral("org.a11y.atspi.Event.Object"), signal);
    message << detail << value << 0 << QVariant::fromValue(QDBusVariant(text)) << QVariantMap();
    QDBusConnection(QStringLiteral("a11y")).send(message);
}

QAccessibleInterface& drawn_interface(WindowView& window, const Control& control) {
    auto* const parent =
        dynamic_cast<WindowInterface*>(QAccessible::queryAccessibleInterface(&window));
    return *parent->interface_of(control);
}

void report_name(QAccessibleInterface& object, const QString& before, const QString& now) {
    if (before.isEmpty())
        report(object, QAccessible::ObjectShow);
    if (now.isEmpty())
        report(object, QAccessible::ObjectHide);
    else
        report(object, QAccessible::NameChanged);
}

#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)

void speak(QAccessibleInterface& object, const QString& text, Announcement announcement) {
    QAccessibleAnnouncementEvent event(&object, text);
    event.setPoliteness(announcement == Announcement::assertive
                            ? QAccessible::AnnouncementPoliteness::Assertive
                            : QAccessible::AnnouncementPoliteness::Polite);
    QAccessible::updateAccessibility(&event);
}

#else

/// The politeness of a live region, as the bus numbers it.
int politeness_of(Announcement announcement) {
    return announcement == Announcement::assertive ? 2 : 1;
}

void speak(QAccessibleInterface& object, const QString& text, Announcement announcement) {
    send_object_signal(object, QStringLiteral("Announcement"), QString(),
                       politeness_of(announcement), text);
}

#endif

/// Has screen readers speak a text that an object on the accessibility bus shows, wherever the
/// keyboard's focus is. Does nothing where no assistive technology runs.
void announce(QAccessibleInterface& object, const QString& text, Announcement announcement) {
    if (announcement != Announcement::none && QAccessible::isActive())
        speak(object, text, announcement);
}

} // namespace

ChangeReporter::ChangeReporter(Windows& windows) {
    windows.ControlShown.connect(this, &ChangeReporter::control_shown);
    windows.HintShown.connect(this, &ChangeReporter::hint_shown);
    windows.Announced.connect(this, &ChangeReporter::announced);
    windows.Forgotten.connect(this, &ChangeReporter::element_forgotten);
}

void ChangeReporter::control_shown(WindowView& window, Control& control) {
    if (auto* const stop = dynamic_cast<LabelTabStop*>(window.widget_of(control)))
        report_tab_stop(*stop, control);
    else if (QAccessible::isActive())
        report_drawn_control(window, control);
}

void ChangeReporter::hint_shown(Hint& hint) {
    announce(*QAccessible::queryAccessibleInterface(&hint), hint.text(), Announcement::assertive);
}

void ChangeReporter::announced(WindowView& window, const Control& control, const QString& text) {
    if (!QAccessible::isActive())
        return;
    QWidget* const widget = window.widget_of(control);
    QAccessibleInterface& object =
        widget ? *QAccessible::queryAccessibleInterface(widget) : drawn_interface(window, control);
    announce(object, text, Announcement::polite);
}

void ChangeReporter::element_forgotten(const Element& element) {
    reported_.erase(&element);
    open_.erase(&element);
}

void ChangeReporter::report_drawn_control(WindowView& window, Control& control) {
    const auto readable = readable_control(control);
    if (!readable)
        return;
    const QString now = control.Visible ? shown_text(readable->name) : QString();
    const QString before = std::exchange(reported_[&control], now);
    if (now == before)
        return;
    QAccessibleInterface& object = drawn_interface(window, control);
    report_name(object, before, now);
    if (!now.isEmpty())
        announce(object, now, readable->announcement);
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

} // namespace lookfar::desktop
