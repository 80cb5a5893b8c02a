#pragma once

#include "demo/http.h"
#include "demo/socket.h"

#include <functional>
#include <variant>

namespace lookfar::demo {

/// Writes all of an answer by hand, status line and headers included. The connection is closed
/// after it.
using RawAnswer = std::function<void(const Socket&)>;

using Reply = std::variant<Answer, RawAnswer>;

/// Gives the reply to a request. It is called by several threads at a time.
using Responder = std::function<Reply(const Request&)>;

/// Reads requests and sends replies until the client or a reply ends the connection. What is no
/// GET request gets status 400; a head above 16 kilobytes gets no answer.
void serve_connection(const Socket& socket, const Responder& responder);

} // namespace lookfar::demo
