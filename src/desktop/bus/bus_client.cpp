#include "desktop/bus/bus_client.h"

#include <array>
#include <cstddef>
#include <string_view>
#include <sys/socket.h>

namespace lookfar::desktop {

namespace {

void write(int socket, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written =
            uninterrupted([&] { return ::send(socket, bytes.data(), bytes.size(), MSG_NOSIGNAL); });
        if (written == -1)
            return;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
}

} // namespace

/// The lines of the authentication protocol of D-Bus, as far as a client of the same user needs
/// them. Descriptors don't pass.
bool BusClient::let_in() {
    while (receive()) {
        for (std::string line = next_line(); !line.empty(); line = next_line()) {
            if (line.starts_with("BEGIN"))
                return true;
            const bool asks = line.find("AUTH EXTERNAL") != std::string::npos;
            write(socket_.number(), asks ? "OK 00000000000000000000000000000000\r\n" : "ERROR\r\n");
        }
    }
    return false;
}

void BusClient::end() const {
    ::shutdown(socket_.number(), SHUT_RDWR);
}

std::string BusClient::next_line() {
    constexpr std::string_view line_end = "\r\n";
    const std::size_t end = received_.find(line_end);
    if (end == std::string::npos)
        return {};
    std::string line = received_.substr(0, end + line_end.size());
    received_.erase(0, line.size());
    return line;
}

bool BusClient::receive() {
    std::array<char, 4096> bytes{};
    const ssize_t size =
        uninterrupted([&] { return ::recv(socket_.number(), bytes.data(), bytes.size(), 0); });
    if (size <= 0)
        return false;
    received_.append(bytes.data(), static_cast<std::size_t>(size));
    return true;
}

BusMessage BusClient::next() {
    const int size = static_cast<int>(received_.size());
    const int needed = dbus_message_demarshal_bytes_needed(received_.data(), size);
    if (needed <= 0 || needed > size)
        return nullptr;
    BusMessage message(dbus_message_demarshal(received_.data(), needed, nullptr));
    received_.erase(0, static_cast<std::size_t>(needed));
    return message;
}

void BusClient::send(const BusMessage& message) const {
    char* bytes = nullptr;
    int size = 0;
    if (!dbus_message_marshal(message.get(), &bytes, &size))
        return;
    write(socket_.number(), {bytes, static_cast<std::size_t>(size)});
    dbus_free(bytes);
}

} // namespace lookfar::desktop
