#include "demo/stream.h"

namespace lookfar::demo {

namespace {

std::string head_of(const StreamStyle& style) {
    return "HTTP/1.1 200 OK\r\nContent-Type: multipart/x-mixed-replace; boundary=" +
           style.boundary + "\r\nConnection: close\r\n\r\n" + style.preamble;
}

std::string part_of(const Answer& picture, const StreamStyle& style) {
    const std::string length =
        style.tells_length
            ? "Content-Length: " + std::to_string(picture.body.size() - style.untold_bytes) + "\r\n"
            : "";
    return style.delimiter + "\r\nContent-Type: " + picture.content_type + "\r\n" + length +
           "\r\n" + picture.body + "\r\n";
}

} // namespace

RawAnswer stream(const std::function<Answer()>& next_picture, const StreamStyle& style) {
    return [next_picture, style](const Socket& socket) {
        bool is_received = socket.write(head_of(style));
        while (is_received)
            is_received = socket.write(part_of(next_picture(), style)) && socket.wait(style.pause);
    };
}

RawAnswer stream_of_one(const Answer& picture) {
    return [picture](const Socket& socket) {
        socket.write(head_of({}) + part_of(picture, {.tells_length = false}));
    };
}

RawAnswer stalling_stream(const Answer& picture) {
    return [picture](const Socket& socket) {
        const std::string start = head_of({}) + part_of(picture, {});
        socket.write(start.substr(0, start.size() - picture.body.size() / 2));
        socket.wait_until_closed();
    };
}

} // namespace lookfar::demo
