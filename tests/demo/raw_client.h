#pragma once

#include <algorithm>
#include <arpa/inet.h>
#include <array>
#include <cstdint>
#include <netinet/in.h>
#include <stdexcept>
#include <string>
#include <string_view>
#include <sys/socket.h>
#include <sys/time.h>
#include <unistd.h>

namespace lookfar::demo {

/// A connection to a server under test that sends and receives plain bytes. Nothing blocks for
/// longer than some seconds.
class RawClient {
  public:
    explicit RawClient(std::uint16_t port) : descriptor_(socket(AF_INET, SOCK_STREAM, 0)) {
        const timeval patience{5, 0};
        setsockopt(descriptor_, SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof patience);
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_port = htons(port);
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        if (connect(descriptor_, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0) {
            close(descriptor_);
            throw std::runtime_error("cannot connect");
        }
    }
    RawClient(const RawClient&) = delete;
    RawClient& operator=(const RawClient&) = delete;
    ~RawClient() { close(descriptor_); }

    void send_text(std::string_view text) const {
        while (!text.empty()) {
            const ssize_t sent = send(descriptor_, text.data(), text.size(), MSG_NOSIGNAL);
            if (sent <= 0) {
                throw std::runtime_error("cannot send");
            }
            text.remove_prefix(static_cast<std::size_t>(sent));
        }
    }

    /// Receives until the text has that size, or the server closes.
    std::string receive(std::size_t size) const {
        std::string text;
        std::array<char, 4096> buffer{};
        while (text.size() < size) {
            const std::size_t wanted = std::min(buffer.size(), size - text.size());
            const ssize_t count = recv(descriptor_, buffer.data(), wanted, 0);
            if (count < 0) {
                throw std::runtime_error("the server neither sends nor closes");
            }
            if (count == 0) {
                break;
            }
            text.append(buffer.data(), static_cast<std::size_t>(count));
        }
        return text;
    }

    std::string receive_all() const { return receive(std::string().max_size()); }

    /// One answer of a connection that is kept open: head, empty line and announced body.
    std::string receive_answer() const {
        std::string answer;
        while (!answer.ends_with("\r\n\r\n")) {
            const std::string byte = receive(1);
            if (byte.empty()) {
                return answer;
            }
            answer += byte;
        }
        constexpr std::string_view length_header = "Content-Length: ";
        const std::size_t length = answer.find(length_header);
        if (length == std::string::npos) {
            throw std::runtime_error("an answer without a length");
        }
        return answer + receive(std::stoul(answer.substr(length + length_header.size())));
    }

  private:
    int descriptor_;
};

inline std::string body_of(const std::string& answer) {
    const std::size_t end_of_head = answer.find("\r\n\r\n");
    return end_of_head == std::string::npos ? std::string() : answer.substr(end_of_head + 4);
}

/// Everything the server sends for one GET over a connection of its own.
inline std::string get_once(std::uint16_t port, std::string_view path) {
    RawClient client(port);
    client.send_text("GET " + std::string(path) + " HTTP/1.1\r\nConnection: close\r\n\r\n");
    return client.receive_all();
}

} // namespace lookfar::demo
