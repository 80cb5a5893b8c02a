#pragma once

#include "desktop/bus/bus_message.h"

#include <poll.h>

#include <memory>
#include <span>
#include <string>
#include <vector>

namespace lookfar::desktop {

/// A connection to a message bus that waits for nothing, whatever the bus does: its user polls it.
class BusConnection {
  public:
    /// Connects, and says hello. Where nobody listens at the address, the connection is closed.
    explicit BusConnection(const std::string& address);
    BusConnection(const BusConnection&) = delete;
    BusConnection& operator=(const BusConnection&) = delete;
    ~BusConnection();

    bool is_open() const;
    /// What to poll for. `handle` then wants the answers, in the same order.
    std::vector<pollfd> wanted() const;
    void handle(std::span<const pollfd> polled);

    /// The next message that has come, the answer to the hello too; nothing where none has.
    BusMessage next();
    /// Gives back the number that an answer will name.
    dbus_uint32_t send(const BusMessage& message);

  private:
    struct Close {
        void operator()(DBusConnection* connection) const;
    };

    std::vector<DBusWatch*> watches_;
    /// Nothing where nobody listens.
    std::unique_ptr<DBusConnection, Close> connection_;
};

} // namespace lookfar::desktop
