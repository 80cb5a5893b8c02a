#pragma once

#include <QObject>

#include <functional>
#include <utility>

namespace lookfar::desktop {

/// The way from other threads to the one that runs the handlers.
class Mailbox {
  public:
    /// Calls `work` later, from the message loop. May be called on any thread.
    void post(std::function<void()> work) {
        QMetaObject::invokeMethod(&loop_, std::move(work), Qt::QueuedConnection);
    }

  private:
    QObject loop_;
};

} // namespace lookfar::desktop
