#include "demo/socket.h"

#include <algorithm>
#include <arpa/inet.h>
#include <array>
#include <cerrno>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <string>
#include <sys/socket.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace lookfar::demo {
namespace {

using Clock = std::chrono::steady_clock;

[[noreturn]] void throw_system_error(const std::string& what) {
    throw std::system_error(errno, std::generic_category(), what);
}

sockaddr_in loopback_address(std::uint16_t port) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return address;
}

bool switch_on(const Socket& socket, int level, int option) {
    const int on = 1;
    return setsockopt(socket.descriptor(), level, option, &on, sizeof on) == 0;
}

/// True when one of the events, or the end of the connection, comes before the deadline.
bool poll_until(const Socket& socket, short events, Clock::time_point deadline) {
    while (true) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
        const auto most = std::chrono::milliseconds(std::chrono::hours(1));
        const auto timeout = std::clamp(left, std::chrono::milliseconds(0), most);
        pollfd polled{socket.descriptor(), events, 0};
        if (poll(&polled, 1, static_cast<int>(timeout.count())) > 0) {
            return true;
        }
        if (Clock::now() >= deadline) {
            return false;
        }
    }
}

} // namespace

Socket::Socket(int descriptor) : descriptor_(descriptor) {}

Socket::Socket(Socket&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}

Socket& Socket::operator=(Socket&& other) noexcept {
    std::swap(descriptor_, other.descriptor_);
    return *this;
}

Socket::~Socket() {
    if (is_open()) {
        close(descriptor_);
    }
}

void Socket::shut_down() const {
    shutdown(descriptor_, SHUT_RDWR);
}

bool Socket::send_all(std::string_view bytes) const {
    while (!bytes.empty()) {
        const ssize_t sent = send(descriptor_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (sent < 0 && errno == EINTR) {
            continue;
        }
        if (sent <= 0) {
            return false;
        }
        bytes.remove_prefix(static_cast<std::size_t>(sent));
    }
    return true;
}

std::size_t Socket::receive(std::span<char> buffer) const {
    ssize_t received = -1;
    do {
        received = recv(descriptor_, buffer.data(), buffer.size(), 0);
    } while (received < 0 && errno == EINTR);
    return received > 0 ? static_cast<std::size_t>(received) : 0;
}

bool Socket::wait(std::chrono::milliseconds duration) const {
    return !poll_until(*this, POLLRDHUP, Clock::now() + duration);
}

void Socket::finish() const {
    shutdown(descriptor_, SHUT_WR);
    const auto deadline = Clock::now() + std::chrono::seconds(1);
    std::array<char, 4096> ignored{};
    while (Clock::now() < deadline && poll_until(*this, POLLIN, deadline) && receive(ignored) > 0) {
    }
}

Socket listen_on_loopback(std::uint16_t port) {
    Socket listener(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
    if (!listener.is_open() || !switch_on(listener, SOL_SOCKET, SO_REUSEADDR)) {
        throw_system_error("cannot make a socket");
    }
    const sockaddr_in address = loopback_address(port);
    const auto* generic_address = reinterpret_cast<const sockaddr*>(&address);
    if (bind(listener.descriptor(), generic_address, sizeof address) != 0 ||
        listen(listener.descriptor(), SOMAXCONN) != 0) {
        throw_system_error("cannot listen on port " + std::to_string(port));
    }
    return listener;
}

Socket accept_connection(const Socket& listener) {
    Socket connection(accept4(listener.descriptor(), nullptr, nullptr, SOCK_CLOEXEC));
    if (connection.is_open()) {
        // Small pieces leave at once: answers are written piecemeal on purpose. Without the option
        // they only leave later.
        static_cast<void>(switch_on(connection, IPPROTO_TCP, TCP_NODELAY));
    }
    return connection;
}

std::uint16_t local_port(const Socket& socket) {
    sockaddr_in address{};
    socklen_t length = sizeof address;
    if (getsockname(socket.descriptor(), reinterpret_cast<sockaddr*>(&address), &length) != 0) {
        throw_system_error("cannot tell the port of a socket");
    }
    return ntohs(address.sin_port);
}

} // namespace lookfar::demo
