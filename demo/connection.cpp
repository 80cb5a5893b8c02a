#include "demo/connection.h"

#include <array>
#include <optional>
#include <string>

namespace lookfar::demo {
namespace {

constexpr std::string_view end_of_head = "\r\n\r\n";

enum class HeadState { complete, closed, too_long };

struct Head {
    HeadState state;
    std::string text;
};

/// Cuts the stream of a connection into request heads.
class HeadReader {
  public:
    explicit HeadReader(const Socket& socket) : socket_(socket) {}

    Head next() {
        while (received_.find(end_of_head) == std::string::npos) {
            if (received_.size() > longest_request_head) {
                return {HeadState::too_long, {}};
            }
            if (!receive_more()) {
                return {HeadState::closed, {}};
            }
        }
        return take_head();
    }

  private:
    bool receive_more() {
        std::array<char, 4096> buffer{};
        const std::size_t count = socket_.receive(buffer);
        received_.append(buffer.data(), count);
        return count > 0;
    }

    Head take_head() {
        const std::size_t length = received_.find(end_of_head);
        if (length > longest_request_head) {
            return {HeadState::too_long, {}};
        }
        Head head{HeadState::complete, received_.substr(0, length)};
        received_.erase(0, length + end_of_head.size());
        return head;
    }

    const Socket& socket_;
    std::string received_;
};

bool send_answer(const Socket& socket, const Answer& answer, bool keep_alive) {
    if (answer.delay.count() > 0 && !socket.wait(answer.delay)) {
        return false;
    }
    return socket.send_all(head_of(answer, keep_alive) + answer.body) && keep_alive;
}

/// True when the connection lives on.
bool send_reply(const Socket& socket, const Reply& reply, bool keep_alive) {
    if (const auto* answer = std::get_if<Answer>(&reply)) {
        return send_answer(socket, *answer, keep_alive);
    }
    ReplyStream stream(socket);
    std::get<RawAnswer>(reply)(stream);
    return false;
}

bool serve_head(const Socket& socket, const Head& head, const Responder& responder) {
    if (head.state == HeadState::closed) {
        return false;
    }
    if (head.state == HeadState::too_long) {
        return send_answer(socket, status_page(431), false);
    }
    const std::optional<Request> request = parse_request(head.text);
    if (!request) {
        return send_answer(socket, status_page(400), false);
    }
    // Other methods have other rules where a request or its answer ends, and a body is never read:
    // what follows either could be misread.
    const bool is_plain_get = request->method == "GET" && !announces_body(*request);
    const bool keep_alive = is_plain_get && wants_keep_alive(*request);
    return send_reply(socket, responder(*request), keep_alive);
}

} // namespace

void serve_connection(const Socket& socket, const Responder& responder) {
    HeadReader reader(socket);
    while (serve_head(socket, reader.next(), responder)) {
    }
    socket.finish();
}

} // namespace lookfar::demo
