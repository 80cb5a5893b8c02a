#include "desktop/accessible/announcement.h"

#include "desktop/accessible/object_signal.h"

#include <QAccessible>

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

void speak(QAccessibleInterface& object, const QString& text, Announcement announcement) {
    send_object_signal(object, QStringLiteral("Announcement"), QString(),
                       politeness_of(announcement), text);
}

#endif

} // namespace

void announce(QAccessibleInterface& object, const QString& text, Announcement announcement) {
    if (announcement != Announcement::none && QAccessible::isActive())
        speak(object, text, announcement);
}

} // namespace lookfar::desktop
