#include "desktop/accessible/announcement.h"

#include <QAccessible>

#if QT_VERSION < QT_VERSION_CHECK(6, 8, 0)
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QVariantMap>
#endif

namespace lookfar::desktop {

namespace {

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

/// This Qt has no event for it, so the signal goes out over the connection that Qt itself holds to
/// the accessibility bus, from the path that Qt gives the object there.
void speak(QAccessibleInterface& object, const QString& text, Announcement announcement) {
    QDBusMessage signal = QDBusMessage::createSignal(
        QStringLiteral("/org/a11y/atspi/accessible/%1").arg(QAccessible::uniqueId(&object)),
        QStringLiteral("org.a11y.atspi.Event.Object"), QStringLiteral("Announcement"));
    signal << QString() << politeness_of(announcement) << 0
           << QVariant::fromValue(QDBusVariant(text)) << QVariantMap();
    QDBusConnection(QStringLiteral("a11y")).send(signal);
}

#endif

} // namespace

void announce(QAccessibleInterface& object, const QString& text, Announcement announcement) {
    if (announcement != Announcement::none && QAccessible::isActive())
        speak(object, text, announcement);
}

} // namespace lookfar::desktop
