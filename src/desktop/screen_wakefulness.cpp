#include "desktop/screen_wakefulness.h"

#include "desktop/native/owned_by_qt.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QEvent>
#include <QWidget>

#include <algorithm>

namespace lookfar::desktop {

namespace {

QString reason() {
    return QStringLiteral("A camera is watched over the whole screen");
}

QDBusMessage request_to_screen_saver() {
    auto request = QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.ScreenSaver"),
                                                  QStringLiteral("/org/freedesktop/ScreenSaver"),
                                                  QStringLiteral("org.freedesktop.ScreenSaver"),
                                                  QStringLiteral("Inhibit"));
    request << QCoreApplication::applicationName() << reason();
    return request;
}

QDBusMessage request_to_portal() {
    constexpr uint idle = 8;
    const QString no_window;
    auto request = QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.portal.Desktop"),
                                                  QStringLiteral("/org/freedesktop/portal/desktop"),
                                                  QStringLiteral("org.freedesktop.portal.Inhibit"),
                                                  QStringLiteral("Inhibit"));
    request << no_window << idle << QVariantMap{{QStringLiteral("reason"), reason()}};
    return request;
}

/// What gives back the grant that an answer holds: the number that the screen saver gave it, or the
/// path of the portal's object; nothing for a refusal. It goes to the very process that answered,
/// since the number may mean another program's grant to one that has taken its place.
std::optional<QDBusMessage> release_of(const QDBusMessage& answer) {
    const QString grant = answer.signature();
    if (grant == QStringLiteral("u"))
        return QDBusMessage::createMethodCall(
                   answer.service(), QStringLiteral("/org/freedesktop/ScreenSaver"),
                   QStringLiteral("org.freedesktop.ScreenSaver"), QStringLiteral("UnInhibit"))
               << answer.arguments().constFirst();
    if (grant == QStringLiteral("o"))
        return QDBusMessage::createMethodCall(
            answer.service(), answer.arguments().constFirst().value<QDBusObjectPath>().path(),
            QStringLiteral("org.freedesktop.portal.Request"), QStringLiteral("Close"));
    return std::nullopt;
}

/// Returns once the session's bus has taken what was sent to it, or after a moment.
void wait_for_bus() {
    constexpr int longest_milliseconds = 100;
    const auto question = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("GetId"));
    QDBusConnection::sessionBus().call(question, QDBus::Block, longest_milliseconds);
}

bool may_cover_or_bare_screen(QEvent::Type type) {
    return type == QEvent::Show || type == QEvent::Hide || type == QEvent::WindowStateChange;
}

bool covers_screen(const QWidget* window) {
    return window->isVisible() && window->isFullScreen() && !window->isMinimized();
}

} // namespace

bool ScreenWakefulness::eventFilter(QObject* watched, QEvent* event) {
    if (may_cover_or_bare_screen(event->type()))
        follow_windows();
    return QObject::eventFilter(watched, event);
}

void ScreenWakefulness::follow_windows() {
    const bool is_wanted = std::ranges::any_of(QApplication::topLevelWidgets(), covers_screen);
    if (is_wanted == is_wanted_)
        return;
    is_wanted_ = is_wanted;
    settle();
}

void ScreenWakefulness::settle() {
    if (is_wanted_ && !is_asking_ && !release_)
        ask({request_to_screen_saver(), request_to_portal()});
    if (!is_wanted_ && release_) {
        QDBusConnection::sessionBus().send(*release_);
        release_.reset();
    }
}

void ScreenWakefulness::ask(QList<QDBusMessage> requests) {
    auto bus = QDBusConnection::sessionBus();
    is_asking_ = is_wanted_ && !requests.isEmpty() && bus.isConnected();
    if (!is_asking_)
        return;
    const QDBusMessage request = requests.takeFirst();
    auto& call = *owned_by_qt<QDBusPendingCallWatcher>(bus.asyncCall(request), this);
    connect(&call, &QDBusPendingCallWatcher::finished, this, [this, &call, requests] {
        call.deleteLater();
        take_answer(call.reply(), requests);
    });
}

void ScreenWakefulness::take_answer(const QDBusMessage& answer,
                                    const QList<QDBusMessage>& other_requests) {
    release_ = release_of(answer);
    if (!release_) {
        ask(other_requests);
        return;
    }
    is_asking_ = false;
    settle();
}

void ScreenWakefulness::end() {
    if (!release_)
        return;
    is_wanted_ = false;
    settle();
    wait_for_bus();
}

} // namespace lookfar::desktop
