#pragma once

#include "desktop/bus/bus_message.h"
#include "runtime/descriptor.h"

#include <string>

namespace lookfar::desktop {

/// A client that takes a socket for a message bus, as the bus sees it.
class BusClient {
  public:
    explicit BusClient(Descriptor socket) : socket_(std::move(socket)) {}

    /// Lets the client in, whoever it says it is. Gives back whether it came in.
    bool let_in();

    /// Makes the client look gone; to be called from another thread.
    void end() const;

    int descriptor() const { return socket_.number(); }
    /// Takes what has come in; waits for it if nothing has. Gives back whether the client is there
    /// still.
    bool receive();
    /// The next message that is whole; nothing where none is.
    BusMessage next();
    void send(const BusMessage& message) const;

  private:
    std::string next_line();

    Descriptor socket_;
    /// What has come and is not taken yet.
    std::string received_;
};

} // namespace lookfar::desktop
