#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>

namespace lookfar::demo {

/// Owns one stream socket and closes it at the end of its life.
///
/// shut_down() may be called from another thread than the one that reads or writes: whatever
/// call is blocked on the socket then returns at once.
class Socket {
  public:
    explicit Socket(int descriptor) : descriptor_(descriptor) {}
    Socket(const Socket&) = delete;
    Socket& operator=(const Socket&) = delete;
    ~Socket();

    int descriptor() const { return descriptor_; }

    /// Ends both directions; the descriptor stays reserved until destruction.
    void shut_down() const;

    /// Sends all bytes; false when nobody receives them any more.
    bool write(std::string_view bytes) const;

    /// Blocks until some bytes are there; an empty text at the end of the stream.
    std::string receive() const;

    /// Waits for the given time; false, and at once, when nobody waits any more.
    bool wait(std::chrono::milliseconds duration) const;

    /// Keeps the connection open, and silent, until the client leaves or the socket is shut down.
    void wait_until_closed() const;

  private:
    int descriptor_;
};

/// Lets a new socket listen on 127.0.0.1, and tells on which port; port 0 takes a free one.
/// Throws std::system_error when the port is not to be had.
std::uint16_t listen_on_loopback(const Socket& socket, std::uint16_t port);

} // namespace lookfar::demo
