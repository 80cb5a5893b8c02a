#include "demo/connection.h"

namespace lookfar::demo {

namespace {

/// Takes the next request head, without its empty line, off what was received; nothing when the
/// client leaves or sends too much.
std::optional<std::string> next_head(const Socket& socket, std::string& received) {
    constexpr std::string_view end_of_head = "\r\n\r\n";
    constexpr std::size_t longest_head = 16'384;
    while (received.find(end_of_head) == std::string::npos) {
        const std::string more = socket.receive();
        if (more.empty() || received.size() > longest_head)
            return std::nullopt;
        received += more;
    }
    const std::size_t length = received.find(end_of_head);
    std::string head = received.substr(0, length);
    received.erase(0, length + end_of_head.size());
    return head;
}

/// True when the connection lives on.
bool send_reply(const Socket& socket, const Reply& reply, bool keep_alive) {
    if (const auto* write = std::get_if<RawAnswer>(&reply)) {
        (*write)(socket);
        return false;
    }
    const auto& answer = std::get<Answer>(reply);
    return socket.wait(answer.delay) && socket.write(head_of(answer, keep_alive) + answer.body) &&
           keep_alive;
}

bool serve_request(const Socket& socket, const std::string& head, const Responder& responder) {
    const std::optional<Request> request = parse_request(head);
    if (!request)
        return send_reply(socket, status_page(400), false);
    return send_reply(socket, responder(*request), request->header("Connection") != "close");
}

} // namespace

void serve_connection(const Socket& socket, const Responder& responder) {
    std::string received;
    for (bool is_open = true; is_open;) {
        const std::optional<std::string> head = next_head(socket, received);
        is_open = head && serve_request(socket, *head, responder);
    }
    socket.shut_down();
}

} // namespace lookfar::demo
