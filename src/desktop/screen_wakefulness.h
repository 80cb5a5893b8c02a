#pragma once

#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QList>
#include <QObject>
#include <QTimer>

#include <optional>

namespace lookfar::desktop {

/// Keeps the screen from going dark while one of the program's windows lies over all of it.
/// Installed as an event filter of the application, it watches the windows come and go.
///
/// It asks the screen saver over the session's bus, or the desktop's portal where there is no
/// screen saver. Where neither grants the wish the screen does as it likes, and nothing is said. No
/// answer is waited for. A service that takes the place of the one that granted the wish is asked
/// anew: the grant was the old one's, and its number may mean another program's to the new one.
class ScreenWakefulness : public QObject {
  public:
    ScreenWakefulness();
    ScreenWakefulness(const ScreenWakefulness&) = delete;
    ScreenWakefulness& operator=(const ScreenWakefulness&) = delete;
    ~ScreenWakefulness() override { end(); }

    /// Gives back what was granted, before the process ends: returns once the bus has it, or after
    /// a moment.
    void end();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void check_windows();
    void settle();
    /// Makes the first of the requests, and the others where that is refused.
    void ask(QList<QDBusMessage> requests);
    void keep_grant_of(const QString& service);

    /// Runs from the first sign of a change until the windows are looked at.
    QTimer change_;
    bool is_wanted_ = false;
    bool is_asking_ = false;
    /// Gives back what was granted; nothing where nothing was.
    std::optional<QDBusMessage> release_;
    /// Watches the service that granted the wish last.
    QDBusServiceWatcher grantor_;
};

} // namespace lookfar::desktop
