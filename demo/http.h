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

/// The head of a GET request.
struct Request {
    std::string line;    ///< As sent.
    std::string path;    ///< From the first slash to the question mark, as sent.
    std::string query;   ///< What follows the question mark; empty without one.
    std::string headers; ///< Lines that start with CR LF.

    /// The value of the first header of that name, which is compared letter by letter.
    std::optional<std::string> header(const std::string& name) const;
};

/// A complete answer; its length is told truthfully.
struct Answer {
    int status = 200;
    std::string content_type = "text/plain; charset=utf-8";
    std::string body = {};
    std::vector<Header> headers = {};   ///< Further ones, beside content type and length.
    std::chrono::milliseconds delay{0}; ///< Waited before the first byte is sent.
};

/// Reads a request head without its closing empty line; nothing when it is no GET of HTTP/1.1.
std::optional<Request> parse_request(std::string_view head);

/// Status line and headers, up to and with the empty line.
std::string head_of(const Answer& answer, bool keep_alive);

/// A short HTML page that names the status.
Answer status_page(int status);

} // namespace lookfar::demo
