#pragma once

#include "desktop/bus/bus_client.h"
#include "desktop/bus/bus_connection.h"

#include <deque>
#include <map>
#include <set>
#include <string>

namespace lookfar::desktop {

/// Stands between a client and a bus that is silent. Until the bus answers, the client meets a bus
/// on which nobody is but assistive technology, where its own bus is known; what the client says
/// meanwhile to others waits. From then on all messages pass, and the client hears of those whom it
/// has asked for.
class BusLink {
  public:
    /// The address of the bus of assistive technology is empty where it is not known.
    BusLink(Descriptor client, const std::string& address, std::string accessibility_bus)
        : client_(std::move(client)),
          bus_(address),
          accessibility_bus_(std::move(accessibility_bus)) {}
    /// Runs until one of both sides goes.
    void run();
    /// Makes `run` come back; to be called from another thread.
    void end() const { client_.end(); }

  private:
    bool wait();
    void handle_from_client(BusMessage message);
    /// What is answered in place of the bus; nothing where that is to wait.
    BusMessage answer_to(const BusMessage& question);
    BusMessage answer_of_accessibility(const BusMessage& question) const;
    void pass_on(const BusMessage& message);

    void handle_from_bus(BusMessage message);
    void begin_to_pass_on();
    void tell_of_owner(const std::string& name, const BusMessage& answer);

    void tell(const BusMessage& message);

    BusClient client_;
    BusConnection bus_;
    const std::string accessibility_bus_;
    bool has_answered_ = false;
    std::deque<BusMessage> waiting_;
    /// The names for which the client was told that nobody has them.
    std::set<std::string> sought_;
    /// By the numbers that they have on the bus: the client's own numbers of its calls, and the
    /// names that this link has asked for.
    std::map<dbus_uint32_t, dbus_uint32_t> calls_;
    std::map<dbus_uint32_t, std::string> questions_;
};

} // namespace lookfar::desktop
