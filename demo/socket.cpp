#include "demo/socket.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <system_error>
#include <unistd.h>

namespace lookfar::demo {

Socket::~Socket() {
    close(descriptor_);
}

void Socket::shut_down() const {
    shutdown(descriptor_, SHUT_RDWR);
}

bool Socket::write(std::string_view bytes) const {
    while (!bytes.empty()) {
        const ssize_t sent = send(descriptor_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (sent <= 0)
            return false;
        bytes.remove_prefix(static_cast<std::size_t>(sent));
    }
    return true;
}

std::string Socket::receive() const {
    std::array<char, 4096> buffer{};
    const ssize_t received = recv(descriptor_, buffer.data(), buffer.size(), 0);
    return {buffer.data(), static_cast<std::size_t>(std::max<ssize_t>(received, 0))};
}

bool Socket::wait(std::chrono::milliseconds duration) const {
    pollfd polled{descriptor_, POLLRDHUP, 0};
    return poll(&polled, 1, static_cast<int>(duration.count())) <= 0;
}

void Socket::wait_until_closed() const {
    while (wait(std::chrono::hours(1))) {
    }
}

std::uint16_t listen_on_loopback(const Socket& socket, std::uint16_t port) {
    const int on = 1;
    sockaddr_in address{};
    socklen_t length = sizeof address;
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    auto* const generic_address = reinterpret_cast<sockaddr*>(&address);
    // With the option the port of a server that has ended is free at once.
    if (setsockopt(socket.descriptor(), SOL_SOCKET, SO_REUSEADDR, &on, sizeof on) != 0 ||
        bind(socket.descriptor(), generic_address, length) != 0 ||
        listen(socket.descriptor(), SOMAXCONN) != 0 ||
        getsockname(socket.descriptor(), generic_address, &length) != 0)
        throw std::system_error(errno, std::generic_category(),
                                "cannot listen on port " + std::to_string(port));
    return ntohs(address.sin_port);
}

} // namespace lookfar::demo
