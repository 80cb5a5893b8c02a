#include "desktop/bus/bus_connection.h"

#include <algorithm>
#include <cstddef>

namespace lookfar::desktop {

namespace {

using Watches = std::vector<DBusWatch*>;

dbus_bool_t add(DBusWatch* watch, void* watches) {
    static_cast<Watches*>(watches)->push_back(watch);
    return TRUE;
}

void remove(DBusWatch* watch, void* watches) {
    std::erase(*static_cast<Watches*>(watches), watch);
}

/// Whether a watch is enabled is asked whenever it counts.
void toggle(DBusWatch* /*watch*/, void* /*watches*/) {}

pollfd poll_for(DBusWatch* watch) {
    short events = 0;
    const unsigned flags = dbus_watch_get_enabled(watch) ? dbus_watch_get_flags(watch) : 0;
    if (flags & DBUS_WATCH_READABLE)
        events |= POLLIN;
    if (flags & DBUS_WATCH_WRITABLE)
        events |= POLLOUT;
    return {.fd = events ? dbus_watch_get_unix_fd(watch) : -1, .events = events, .revents = 0};
}

unsigned flags_of(short events) {
    unsigned flags = 0;
    if (events & POLLIN)
        flags |= DBUS_WATCH_READABLE;
    if (events & POLLOUT)
        flags |= DBUS_WATCH_WRITABLE;
    if (events & POLLERR)
        flags |= DBUS_WATCH_ERROR;
    if (events & POLLHUP)
        flags |= DBUS_WATCH_HANGUP;
    return flags;
}

} // namespace

void BusConnection::Close::operator()(DBusConnection* connection) const {
    dbus_connection_close(connection);
    dbus_connection_unref(connection);
}

BusConnection::BusConnection(const std::string& address) {
    dbus_threads_init_default();
    connection_.reset(dbus_connection_open_private(address.c_str(), nullptr));
    if (!connection_)
        return;
    dbus_connection_set_exit_on_disconnect(connection_.get(), FALSE);
    dbus_connection_set_watch_functions(connection_.get(), add, remove, toggle, &watches_, nullptr);
    send(call_to_bus("Hello"));
}

BusConnection::~BusConnection() = default;

bool BusConnection::is_open() const {
    return connection_ && dbus_connection_get_is_connected(connection_.get());
}

std::vector<pollfd> BusConnection::wanted() const {
    std::vector<pollfd> wanted(watches_.size());
    std::ranges::transform(watches_, wanted.begin(), poll_for);
    return wanted;
}

/// A watch may go while another one is handled; the rest is then polled for again.
void BusConnection::handle(std::span<const pollfd> polled) {
    const Watches watches = watches_;
    for (std::size_t index = 0; index < watches.size() && watches == watches_; ++index)
        if (const unsigned flags = flags_of(polled[index].revents))
            dbus_watch_handle(watches[index], flags);
}

BusMessage BusConnection::next() {
    if (!connection_)
        return nullptr;
    return BusMessage(dbus_connection_pop_message(connection_.get()));
}

dbus_uint32_t BusConnection::send(const BusMessage& message) {
    dbus_uint32_t number = 0;
    dbus_connection_send(connection_.get(), message.get(), &number);
    return number;
}

} // namespace lookfar::desktop
