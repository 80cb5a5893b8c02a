#include "desktop/bus/bus_message.h"

namespace lookfar::desktop {

BusMessage call_to_bus(const char* method) {
    return BusMessage(dbus_message_new_method_call(DBUS_SERVICE_DBUS, DBUS_PATH_DBUS,
                                                   DBUS_INTERFACE_DBUS, method));
}

bool is_call_to_bus(const BusMessage& message, const char* method) {
    return dbus_message_is_method_call(message.get(), DBUS_INTERFACE_DBUS, method) != FALSE;
}

} // namespace lookfar::desktop
