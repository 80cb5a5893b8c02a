#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace lookfar::demo {

/// Owns one stream socket and closes it at the end of its life.
///
/// shut_down() may be called from another thread than the one that reads or writes: whatever
/// call is blocked on the socket then returns at once.
class Socket {
  public:
    Socket() = default;
    explicit Socket(int descriptor);
    Socket(Socket&& other) noexcept;
    Socket& operator=(Socket&& other) noexcept;
    Socket(const Socket&) = delete;
    Socket& operator=(const Socket&) = delete;
    ~Socket();

    int descriptor() const { return descriptor_; }
    bool is_open() const { return descriptor_ >= 0; }

    /// Ends both directions; the descriptor stays reserved until destruction.
    void shut_down() const;

    /// Sends all bytes; false as soon as the peer is gone or the socket was shut down.
    bool send_all(std::string_view bytes) const;

    /// Blocks until some bytes are there; 0 at the end of the stream or on an error.
    std::size_t receive(std::span<char> buffer) const;

    /// Waits for the given time; false at once when the peer closes or the socket is shut down.
    bool wait(std::chrono::milliseconds duration) const;

    /// Tells the peer that nothing more comes and swallows, for a second at most, what it still
    /// sends. Closing with unread bytes would reset the connection and take the answer with it.
    void finish() const;

  private:
    int descriptor_ = -1;
};

/// A listening socket on 127.0.0.1; port 0 takes a free one.
/// Throws std::system_error when the port is not to be had.
Socket listen_on_loopback(std::uint16_t port);

/// Waits for the next connection; a closed Socket when there is none.
Socket accept_connection(const Socket& listener);

/// The port a bound socket has.
std::uint16_t local_port(const Socket& socket);

} // namespace lookfar::demo
