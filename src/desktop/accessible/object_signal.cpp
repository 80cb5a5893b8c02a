#include "desktop/accessible/object_signal.h"

#include <QAccessible>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QVariantMap>

namespace lookfar::desktop {

/// It goes out over the connection that Qt itself holds to that bus, from the path that Qt gives
/// the object there.
void send_object_signal(QAccessibleInterface& object, const QString& signal, const QString& detail,
                        int value, const QString& text) {
    QDBusMessage message = QDBusMessage::createSignal(
        QStringLiteral("/org/a11y/atspi/accessible/%1").arg(QAccessible::uniqueId(&object)),
        QStringLiteral("org.a11y.atspi.Event.Object"), signal);
    message << detail << value << 0 << QVariant::fromValue(QDBusVariant(text)) << QVariantMap();
    QDBusConnection(QStringLiteral("a11y")).send(message);
}

} // namespace lookfar::desktop
