#pragma once

#include "demo/socket.h"

#include <cerrno>
#include <netinet/in.h>
#include <stdexcept>
#include <sys/socket.h>

namespace lookfar::demo {

/// A connection to a server under test that sends a text and receives plain bytes. It waits for
/// some seconds at most.
class RawClient {
  public:
    explicit RawClient(std::uint16_t port, const std::string& text = {}) {
        const timeval patience{5, 0};
        setsockopt(socket_.descriptor(), SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof patience);
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_port = htons(port);
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        const auto* generic = reinterpret_cast<const sockaddr*>(&address);
        if (connect(socket_.descriptor(), generic, sizeof address) != 0 || !socket_.write(text))
            throw std::runtime_error("cannot reach the server");
    }

    /// All that comes until the server closes. Throws std::runtime_error when it does not.
    std::string receive() const {
        std::string text, part;
        do {
            errno = 0;
            part = socket_.receive();
            text += part;
        } while (!part.empty());
        if (errno == EAGAIN)
            throw std::runtime_error("the server does not close");
        return text;
    }

  private:
    Socket socket_{socket(AF_INET, SOCK_STREAM, 0)};
};

/// All that the server sends for one GET over a connection of its own.
inline std::string get(std::uint16_t port, const std::string& path) {
    return RawClient(port, "GET " + path + " HTTP/1.1\r\nConnection: close\r\n\r\n").receive();
}

} // namespace lookfar::demo
