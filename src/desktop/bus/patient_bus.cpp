#include "desktop/bus/patient_bus.h"

#include "desktop/bus/bus_connection.h"
#include "desktop/x11/x_server.h"

#include <chrono>
#include <cstddef>
#include <cstdlib>
#include <memory>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#include <utility>

namespace lookfar::desktop {

namespace {

constexpr const char* address_variable = "DBUS_SESSION_BUS_ADDRESS";

/// Empty where there is no bus.
std::string session_bus_address() {
    if (const char* const address = std::getenv(address_variable))
        return address;
    const char* const folder = std::getenv("XDG_RUNTIME_DIR");
    return folder ? "unix:path=" + std::string(folder) + "/bus" : "";
}

/// The address of the bus of assistive technology, as the X server's root window names it; empty
/// where there is no X server, or no such bus.
std::string accessibility_bus_address() {
    const std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)> server(
        xcb_connect(nullptr, nullptr), xcb_disconnect);
    if (xcb_connection_has_error(server.get()))
        return {};
    const xcb_atom_t property = atom(server.get(), "AT_SPI_BUS");
    constexpr std::uint32_t longest_words = 256;
    const auto root = xcb_setup_roots_iterator(xcb_get_setup(server.get())).data->root;
    const Received<xcb_get_property_reply_t> value(
        xcb_get_property_reply(
            server.get(),
            xcb_get_property(server.get(), 0, root, property, XCB_ATOM_STRING, 0, longest_words),
            nullptr),
        std::free);
    if (!value)
        return {};
    return {static_cast<const char*>(xcb_get_property_value(value.get())),
            static_cast<std::size_t>(xcb_get_property_value_length(value.get()))};
}

bool is_silent(const std::string& address) {
    using namespace std::chrono;
    const auto end = steady_clock::now() + milliseconds(300);
    BusConnection bus(address);
    while (bus.is_open()) {
        if (bus.next())
            return false;
        const auto left = ceil<milliseconds>(end - steady_clock::now());
        if (left <= milliseconds::zero())
            return true;
        std::vector<pollfd> polled = bus.wanted();
        ::poll(polled.data(), polled.size(), static_cast<int>(left.count()));
        bus.handle(polled);
    }
    return false;
}

/// A socket that listens under a name that the system chooses.
Descriptor listening_socket() {
    Descriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    if (!socket)
        return socket;
    sockaddr_un name{};
    name.sun_family = AF_UNIX;
    const bool listens = ::bind(socket.number(), reinterpret_cast<const sockaddr*>(&name),
                                sizeof name.sun_family) == 0 &&
                         ::listen(socket.number(), SOMAXCONN) == 0;
    return listens ? std::move(socket) : Descriptor();
}

std::string address_of(const Descriptor& socket) {
    sockaddr_un name{};
    socklen_t size = sizeof name;
    ::getsockname(socket.number(), reinterpret_cast<sockaddr*>(&name), &size);
    // The name of such a socket begins behind a zero, and has no end but its size.
    const std::size_t begin = offsetof(sockaddr_un, sun_path) + 1;
    return "unix:abstract=" + std::string(name.sun_path + 1, size - begin);
}

bool is_of_this_process(const Descriptor& client) {
    ucred peer{};
    socklen_t size = sizeof peer;
    return ::getsockopt(client.number(), SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 &&
           peer.pid == ::getpid();
}

} // namespace

PatientBus::PatientBus() : address_(session_bus_address()) {
    if (!address_.empty() && is_silent(address_))
        open_door();
}

PatientBus::~PatientBus() {
    shut_door();
    for (Guest& guest : guests_) {
        guest.link.end();
        guest.thread.join();
    }
}

void PatientBus::open_door() {
    door_ = listening_socket();
    if (!door_)
        return;
    accessibility_bus_ = accessibility_bus_address();
    ::setenv(address_variable, address_of(door_).c_str(), true);
    doorkeeper_ = std::thread([this] { let_in(); });
}

void PatientBus::let_in() {
    while (Descriptor client{::accept4(door_.number(), nullptr, nullptr, SOCK_CLOEXEC)}) {
        if (is_of_this_process(client))
            guests_.emplace_back(std::move(client), address_, accessibility_bus_);
    }
}

void PatientBus::shut_door() {
    if (!doorkeeper_.joinable())
        return;
    ::setenv(address_variable, address_.c_str(), true);
    ::shutdown(door_.number(), SHUT_RDWR);
    doorkeeper_.join();
}

} // namespace lookfar::desktop
