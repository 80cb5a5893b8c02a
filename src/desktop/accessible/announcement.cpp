#include "desktop/accessible/announcement.h"

#include <QAccessible>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QVariantMap>

namespace lookfar::desktop {

namespace {

/// The politeness of a live region, as the bus numbers it.
int politeness_of(Announcement announcement) {
    return announcement == Announcement::assertive ? 2 : 1;
}

} // namespace

/// Qt has no event for this before its version 6.8, so the signal goes out over the connection
/// that Qt itself holds to the accessibility bus, from the path that Qt gives the object there.
void announce(QAccessibleInterface& object, const QString& text, Announcement announcement) {
    if (announcement == Announcement::none || !QAccessible::isActive())
        return;
    QDBusMessage signal = QDBusMessage::createSignal(
        QStringLiteral("/org/a11y/atspi/accessible/%1").arg(QAccessible::uniqueId(&object)),
        QStringLiteral("org.a11y.atspi.Event.Object"), QStringLiteral("Announcement"));
    signal << QString() << politeness_of(announcement) << 0
           << QVariant::fromValue(QDBusVariant(text)) << QVariantMap();
    QDBusConnection(QStringLiteral("a11y")).send(signal);
}

} // namespace lookfar::desktop
