#include "demo/misbehaviour.h"

#include "demo/hostile_pictures.h"
#include "demo/locked_camera.h"
#include "demo/stream.h"

#include <map>

namespace lookfar::demo {

namespace {

Responder always(const Reply& reply) {
    return [reply](const Request&) { return reply; };
}

/// Sends these bytes and closes the connection.
Responder sending(const std::string& bytes) {
    return always([bytes](const Socket& socket) { socket.write(bytes); });
}

/// For answers that are too costly to make before somebody asks.
Responder made_on_request(Answer (*make)()) {
    return [make](const Request&) { return make(); };
}

Answer web_page() {
    return {.content_type = "text/html", .body = "<p>This camera has moved.</p>\n"};
}

Answer with_status(int status, Answer answer) {
    answer.status = status;
    return answer;
}

/// An answer that announces so many bytes, whatever its body is.
std::string announcing(std::size_t length, const std::string& body,
                       const std::string& more_headers = {}) {
    return "HTTP/1.1 200 OK\r\nContent-Type: image/jpeg\r\nContent-Length: " +
           std::to_string(length) + more_headers + "\r\n\r\n" + body;
}

std::string header_of_length(std::size_t length) {
    return "\r\nX-Camera: " + std::string(length, 'a');
}

/// Sends a body without an announced length that never ends.
void send_for_ever(const Socket& socket) {
    const std::string piece = small_picture().body;
    bool is_received = socket.write("HTTP/1.1 200 OK\r\nContent-Type: image/jpeg\r\n"
                                    "Connection: close\r\n\r\n");
    while (is_received)
        is_received = socket.write(piece);
}

/// Sends the head at once and the body one byte at a time.
Responder drip(const Answer& whole, std::chrono::milliseconds interval) {
    return always([whole, interval](const Socket& socket) {
        bool is_received = socket.write(head_of(whole, false));
        for (const char& byte : whole.body)
            is_received = is_received && socket.wait(interval) && socket.write({&byte, 1});
    });
}

/// Sends that many redirects to itself, one after the other, the last one to the end.
Responder redirect_chain(int length, const std::string& end) {
    return [length, end](const Request& request) {
        const int left = request.query.empty() ? length : std::stoi(request.query);
        return redirect_to(left > 1 ? request.path + "?" + std::to_string(left - 1) : end)(request);
    };
}

std::map<std::string, Responder> misbehaving_connections(std::chrono::milliseconds interval) {
    const Answer picture = small_picture();
    const std::string& body = picture.body;
    std::string many_headers;
    for (int count = 0; count < 100'000; ++count)
        many_headers += header_of_length(100);
    return {
        {"/stall", stall()},
        {"/hang-up", hang_up()},
        {"/endless", always(send_for_ever)},
        {"/drip", drip(picture, interval)},
        {"/slow-drip", drip(picture, std::chrono::seconds(1))},
        {"/not-http", sending("220 ready when you are\r\n\x01\x02\x03")},
        {"/cut-short", sending(announcing(body.size(), body.substr(0, body.size() / 2)))},
        {"/long-length", sending(announcing(body.size() + 1000, body))},
        {"/bad-chunk", sending("HTTP/1.1 200 OK\r\nTransfer-Encoding: "
                               "chunked\r\n\r\n4\r\n\xFF\xD8\xFF\xE0\r\nx\r\n")},
        {"/short-length", sending(announcing(body.size() - body.size() / 4, body))},
        {"/broken-promise", sending(announcing(body.size(), body, "\r\nConnection: keep-alive"))},
        {"/long-header", sending(announcing(body.size(), body, header_of_length(10'000'000)))},
        {"/many-headers", sending(announcing(body.size(), body, many_headers))},
        {"/redirect-once", redirect_to("/good")},
        {"/redirect-chain", redirect_chain(100, "/good")},
        {"/redirect-circle", redirect_to("/redirect-circle-back")},
        {"/redirect-circle-back", redirect_to("/redirect-circle")},
        {"/redirect-nowhere", redirect_to("http://[::z]/")},
        {"/redirect-to-file", redirect_to("file:///etc/hostname")},
    };
}

std::map<std::string, Responder> streams() {
    const StreamStyle bare{.tells_length = false};
    const StreamStyle odd{.boundary = "\"--odd; one\"",
                          .delimiter = "--odd; one",
                          .preamble = "This is a stream.\r\n\r\n",
                          .tells_length = false};
    return {
        {"/stream", always(stream(small_picture))},
        {"/stream-short-length", always(stream(small_picture, {.untold_bytes = 1000}))},
        {"/stream-bare", always(stream(small_picture, bare))},
        {"/stream-odd", always(stream(small_picture, odd))},
        {"/stream-of-one", always(stream_of_one(small_picture()))},
        {"/stream-stall", always(stalling_stream(small_picture()))},
    };
}

std::map<std::string, Responder> hostile_answers() {
    return {
        {"/good", always(small_picture())},
        {"/page", always(web_page())},
        {"/gone", always(status_page(404))},
        {"/gone-with-picture", always(with_status(404, small_picture()))},
        {"/busy", always(Answer{.status = 503})},
        {"/unknown-format", always(Answer{.content_type = "image/avif", .body = "ftypavif"})},
        {"/nothing", always(Answer{.content_type = "image/jpeg"})},
        {"/huge-picture", always(huge_picture())},
        {"/truncated", always(truncated_picture())},
        {"/one-pixel", always(plain_picture({1, 1}))},
        {"/one-row", always(plain_picture({30'000, 1}))},
        {"/one-column", always(plain_picture({1, 30'000}))},
        {"/large-metadata", made_on_request(picture_with_large_metadata)},
        {"/many-scans", made_on_request(picture_of_many_scans)},
        {"/animation", made_on_request(long_animation)},
        {"/deflate-bomb", made_on_request(deflate_bomb)},
        {"/pixel-bomb", made_on_request(pixel_bomb)},
        {"/text-bomb", made_on_request(text_bomb)},
        {"/basic", locked_by_basic(small_picture())},
        {"/digest", locked_by_digest(small_picture())},
    };
}

} // namespace

Responder stall() {
    return always([](const Socket& socket) { socket.wait_until_closed(); });
}

Responder hang_up() {
    return sending("");
}

Responder redirect_to(const std::string& location) {
    Answer answer = status_page(302);
    answer.headers = {{"Location", location}};
    return always(answer);
}

void install_misbehaviour(CameraServer& server, std::chrono::milliseconds drip_interval) {
    for (const auto& cameras :
         {misbehaving_connections(drip_interval), streams(), hostile_answers()})
        for (const auto& [path, responder] : cameras)
            server.answer(path, responder);
}

} // namespace lookfar::demo
