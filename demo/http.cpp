#include "demo/http.h"

#include <algorithm>
#include <cctype>

namespace lookfar::demo {
namespace {

bool equal_ignoring_case(std::string_view left, std::string_view right) {
    const auto lower = [](char letter) { return std::tolower(static_cast<unsigned char>(letter)); };
    return std::ranges::equal(left, right, {}, lower, lower);
}

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view blanks = " \t";
    const auto first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

/// Takes what stands before the separator off the text; all of it when there is none.
std::string_view take_until(std::string_view& text, std::string_view separator) {
    const auto position = text.find(separator);
    const std::string_view taken = text.substr(0, position);
    text.remove_prefix(position == std::string_view::npos ? text.size()
                                                          : position + separator.size());
    return taken;
}

/// Clients that speak to a proxy send the whole URL; only its path matters here.
std::string_view without_authority(std::string_view target) {
    constexpr std::string_view scheme = "http://";
    if (!target.starts_with(scheme)) {
        return target;
    }
    const auto slash = target.find('/', scheme.size());
    return slash == std::string_view::npos ? "/" : target.substr(slash);
}

bool parse_request_line(std::string_view line, Request& request) {
    request.method = take_until(line, " ");
    std::string_view target = without_authority(take_until(line, " "));
    request.version = line;
    request.path = take_until(target, "?");
    request.query = target;
    return !request.method.empty() && request.path.starts_with('/') &&
           (request.version == "HTTP/1.1" || request.version == "HTTP/1.0");
}

std::string_view reason_phrase(int status) {
    switch (status) {
    case 200:
        return "OK";
    case 302:
        return "Found";
    case 304:
        return "Not Modified";
    case 400:
        return "Bad Request";
    case 401:
        return "Unauthorized";
    case 404:
        return "Not Found";
    case 405:
        return "Method Not Allowed";
    case 431:
        return "Request Header Fields Too Large";
    case 500:
        return "Internal Server Error";
    case 503:
        return "Service Unavailable";
    default:
        return "Unnamed";
    }
}

} // namespace

std::optional<std::string_view> Request::header(std::string_view name) const {
    const auto found = std::ranges::find_if(
        headers, [&](const Header& header) { return equal_ignoring_case(header.name, name); });
    if (found == headers.end()) {
        return std::nullopt;
    }
    return found->value;
}

std::optional<Request> parse_request(std::string_view head) {
    Request request;
    if (!parse_request_line(take_until(head, "\r\n"), request)) {
        return std::nullopt;
    }
    while (!head.empty()) {
        std::string_view line = take_until(head, "\r\n");
        if (line.find(':') == std::string_view::npos) {
            return std::nullopt;
        }
        const std::string_view name = take_until(line, ":");
        request.headers.push_back({std::string(name), std::string(trimmed(line))});
    }
    return request;
}

bool wants_keep_alive(const Request& request) {
    const std::string_view connection = request.header("Connection").value_or("");
    return request.version == "HTTP/1.1" && !equal_ignoring_case(connection, "close");
}

bool announces_body(const Request& request) {
    return request.header("Content-Length").value_or("0") != "0" ||
           request.header("Transfer-Encoding").has_value();
}

std::string head_of(const Answer& answer, bool keep_alive) {
    std::string head = "HTTP/1.1 " + std::to_string(answer.status) + " ";
    head += reason_phrase(answer.status);
    head += "\r\nContent-Type: " + answer.content_type;
    head += "\r\nContent-Length: " + std::to_string(answer.body.size());
    head += keep_alive ? "\r\nConnection: keep-alive" : "\r\nConnection: close";
    for (const Header& header : answer.headers) {
        head += "\r\n" + header.name + ": " + header.value;
    }
    return head + "\r\n\r\n";
}

Answer status_page(int status) {
    const std::string title = std::to_string(status) + " " + std::string(reason_phrase(status));
    return {.status = status,
            .content_type = "text/html; charset=utf-8",
            .body = "<!DOCTYPE html><html><head><title>" + title + "</title></head><body><h1>" +
                    title + "</h1></body></html>\n",
            .headers = {},
            .delay = {}};
}

} // namespace lookfar::demo
