#include "desktop/screen_wakefulness.h"

#include "desktop/native/owned_by_qt.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QEvent>
#include <QWidget>

#include <algorithm>
#include <chrono>

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

/// What gives back the grant that the service's answer holds: the number that the screen saver gave
/// it, or the path of the portal's object; nothing for a refusal.
std::optional<QDBusMessage> release_of(const QString& service, const QDBusMessage& answer) {
    const QString grant = answer.signature();
    if (grant == QStringLiteral("u"))
        return QDBusMessage::createMethodCall(
                   service, QStringLiteral("/org/freedesktop/ScreenSaver"),
                   QStringLiteral("org.freedesktop.ScreenSaver"), QStringLiteral("UnInhibit"))
               << answer.arguments().constFirst();
    if (grant == QStringLiteral("o"))
        return QDBusMessage::createMethodCall(
            service, answer.arguments().constFirst().value<QDBusObjectPath>().path(),
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

ScreenWakefulness::ScreenWakefulness() {
    // Some window managers tell the state of a window that changes more than once.
    constexpr std::chrono::milliseconds longest_change(200);
    change_.setSingleShot(true);
    change_.setInterval(longest_change);
    change_.callOnTimeout([this] { check_windows(); });
    connect(&grantor_, &QDBusServiceWatcher::serviceUnregistered, this,
            [this] { release_.reset(); });
    connect(&grantor_, &QDBusServiceWatcher::serviceRegistered, this, [this] { settle(); });
}

bool ScreenWakefulness::eventFilter(QObject* watched, QEvent* event) {
    if (may_cover_or_bare_screen(event->type()) && !change_.isActive())
        change_.start();
    return QObject::eventFilter(watched, event);
}

void ScreenWakefulness::check_windows() {
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
    connect(&call, &QDBusPendingCallWatcher::finished, this, [this, &call, request, requests] {
        call.deleteLater();
        release_ = release_of(request.service(), call.reply());
        if (release_)
            keep_grant_of(request.service());
        else
            ask(requests);
    });
}

void ScreenWakefulness::keep_grant_of(const QString& service) {
    grantor_.setConnection(QDBusConnection::sessionBus());
    grantor_.setWatchedServices({service});
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
