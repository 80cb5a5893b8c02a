#pragma once

#include <dbus/dbus.h>

#include <memory>

namespace lookfar::desktop {

struct ReleaseBusMessage {
    void operator()(DBusMessage* message) const { dbus_message_unref(message); }
};

/// A message of libdbus, or none.
using BusMessage = std::unique_ptr<DBusMessage, ReleaseBusMessage>;

/// Makes a call to the bus itself.
BusMessage call_to_bus(const char* method);

/// Whether the message is such a call.
bool is_call_to_bus(const BusMessage& message, const char* method);

} // namespace lookfar::desktop
