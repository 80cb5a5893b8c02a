#include "demo/http.h"

#include <algorithm>

namespace lookfar::demo {

namespace {

constexpr std::string_view line_end = "\r\n";
constexpr std::string_view scheme = "http://";

/// Takes what stands before the separator off the text; all of it when there is none.
std::string_view take_until(std::string_view& text, char separator) {
    const std::size_t end = std::min(text.find(separator), text.size());
    const std::string_view taken = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return taken;
}

} // namespace

std::optional<std::string> Request::header(const std::string& name) const {
    const std::string start = "\r\n" + name + ": ";
    const std::size_t found = headers.find(start);
    if (found == std::string::npos)
        return std::nullopt;
    const std::size_t value = found + start.size();
    return headers.substr(value, headers.find(line_end, value) - value);
}

std::optional<Request> parse_request(std::string_view head) {
    const std::size_t end_of_line = std::min(head.find(line_end), head.size());
    const std::string whole_line(head.substr(0, end_of_line));
    std::string_view line = whole_line;
    const std::string_view method = take_until(line, ' ');
    std::string_view target = take_until(line, ' ');
    // Clients that take the server for a proxy send the whole URL.
    if (target.starts_with(scheme))
        target.remove_prefix(std::min(target.find('/', scheme.size()), target.size()));
    if (method != "GET" || !target.starts_with('/') || line != "HTTP/1.1")
        return std::nullopt;
    const std::string_view path = take_until(target, '?');
    return Request{whole_line, std::string(path), std::string(target),
                   std::string(head.substr(end_of_line))};
}

std::string head_of(const Answer& answer, bool keep_alive) {
    // The status has no reason in words: nobody reads it.
    std::string head = "HTTP/1.1 " + std::to_string(answer.status) +
                       " \r\nContent-Type: " + answer.content_type +
                       "\r\nContent-Length: " + std::to_string(answer.body.size()) +
                       "\r\nConnection: " + (keep_alive ? "keep-alive" : "close");
    for (const Header& header : answer.headers)
        head += "\r\n" + header.name + ": " + header.value;
    return head + "\r\n\r\n";
}

Answer status_page(int status) {
    const std::string title = std::to_string(status);
    return {.status = status,
            .content_type = "text/html",
            .body = "<!DOCTYPE html><title>" + title + "</title><h1>" + title + "</h1>\n"};
}

} // namespace lookfar::demo
