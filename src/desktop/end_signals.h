#pragma once

#include "runtime/descriptor.h"

#include <QSocketNotifier>

#include <functional>

namespace lookfar::desktop {

/// Hears SIGTERM, SIGINT and SIGHUP, by which a session, a terminal or a user asks the program to
/// end. One that was ignored when the program started stays ignored. There is one in a process.
class EndSignals {
  public:
    /// Calls `asked` from the message loop after such a signal. Without a descriptor to spare the
    /// signals keep their usual effect.
    explicit EndSignals(std::function<void()> asked);
    EndSignals(const EndSignals&) = delete;
    EndSignals& operator=(const EndSignals&) = delete;
    ~EndSignals();

  private:
    Descriptor descriptor_;
    /// Goes before the descriptor, which it watches.
    QSocketNotifier notifier_;
};

} // namespace lookfar::desktop
