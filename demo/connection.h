#pragma once

#include "demo/http.h"
#include "demo/socket.h"

#include <chrono>
#include <cstddef>
#include <functional>
#include <string_view>
#include <variant>

namespace lookfar::demo {

/// What an answer that is written by hand may do with its connection.
///
/// Every call returns at once when the client leaves or the server stops.
class ReplyStream {
  public:
    explicit ReplyStream(const Socket& socket) : socket_(&socket) {}

    /// Sends the bytes as they are; false when nobody receives them any more.
    bool write(std::string_view bytes) { return socket_->send_all(bytes); }

    /// Waits; false when nobody waits any more.
    bool wait(std::chrono::milliseconds duration) { return socket_->wait(duration); }

    /// Keeps the connection open, and silent, until the client leaves or the server stops.
    void wait_until_closed() {
        while (socket_->wait(std::chrono::hours(1))) {
        }
    }

  private:
    const Socket* socket_;
};

/// Writes all of an answer, status line and headers included. The connection is closed after it.
using RawAnswer = std::function<void(ReplyStream&)>;

using Reply = std::variant<Answer, RawAnswer>;

/// Gives the reply to a request. It is called by several threads at a time.
using Responder = std::function<Reply(const Request&)>;

/// The longest request head that is read, in bytes.
inline constexpr std::size_t longest_request_head = 16'384;

/// Reads requests and sends replies until the client or a reply ends the connection.
/// Heads that are no HTTP get status 400, longer ones than longest_request_head 431.
void serve_connection(const Socket& socket, const Responder& responder);

} // namespace lookfar::demo
