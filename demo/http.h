#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace lookfar::demo {

struct Header {
    std::string name;
    std::string value;
};

/// The head of one request.
struct Request {
    std::string method;
    std::string path;  ///< From the first slash to the question mark, as sent.
    std::string query; ///< What follows the question mark; empty without one.
    std::string version;
    std::vector<Header> headers;

    /// The first header of that name, in whatever case it was sent.
    std::optional<std::string_view> header(std::string_view name) const;
};

/// A complete answer; its length is told truthfully.
struct Answer {
    int status = 200;
    std::string content_type = "text/plain; charset=utf-8";
    std::string body;
    std::vector<Header> headers;        ///< Further ones, beside content type and length.
    std::chrono::milliseconds delay{0}; ///< Waited before the first byte is sent.
};

/// Reads a request head without its closing empty line; nothing when it is no HTTP/1 request.
std::optional<Request> parse_request(std::string_view head);

/// Whether the client wants to send another request over the same connection.
bool wants_keep_alive(const Request& request);

/// Whether a body follows the head.
bool announces_body(const Request& request);

/// Status line and headers, up to and with the empty line.
std::string head_of(const Answer& answer, bool keep_alive);

/// A short HTML page that names the status.
Answer status_page(int status);

} // namespace lookfar::demo
