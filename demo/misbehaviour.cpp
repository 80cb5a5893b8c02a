#include "demo/misbehaviour.h"

#include "demo/compression_bombs.h"
#include "demo/hostile_pictures.h"
#include "demo/locked_camera.h"

#include <string_view>
#include <utility>

namespace lookfar::demo {
namespace {

Responder raw(RawAnswer answer) {
    return [answer = std::move(answer)](const Request&) -> Reply { return answer; };
}

Responder always(Answer answer) {
    return [answer = std::move(answer)](const Request&) -> Reply { return answer; };
}

/// For answers that are too costly to make before somebody asks.
Responder made_on_request(Answer (*make)()) {
    return [make](const Request&) -> Reply { return make(); };
}

Answer web_page() {
    return {.status = 200,
            .content_type = "text/html; charset=utf-8",
            .body = "<!DOCTYPE html><html><body><p>This camera has moved.</p></body></html>\n",
            .headers = {},
            .delay = {}};
}

Answer empty_picture() {
    Answer answer = small_picture();
    answer.body.clear();
    return answer;
}

} // namespace

Responder stall() {
    return raw([](const Socket& socket) { socket.wait_until_closed(); });
}

Responder cut_short(Answer whole) {
    return raw([whole = std::move(whole)](const Socket& socket) {
        socket.write(head_of(whole, false) + whole.body.substr(0, whole.body.size() / 2));
    });
}

Responder wrong_length(Answer whole, std::size_t announced) {
    return raw([whole = std::move(whole), announced](const Socket& socket) {
        socket.write("HTTP/1.1 200 OK\r\nContent-Type: " + whole.content_type +
                     "\r\nContent-Length: " + std::to_string(announced) + "\r\n\r\n" + whole.body);
    });
}

Responder redirect_to(std::string location) {
    Answer answer = status_page(302);
    answer.headers.push_back({"Location", std::move(location)});
    return always(std::move(answer));
}

Responder endless() {
    return raw([](const Socket& socket) {
        const std::string piece = small_picture().body;
        bool received = socket.write("HTTP/1.1 200 OK\r\nContent-Type: image/jpeg\r\n"
                                     "Connection: close\r\n\r\n");
        while (received) {
            received = socket.write(piece);
        }
    });
}

Responder drip(Answer whole, std::chrono::milliseconds interval) {
    return raw([whole = std::move(whole), interval](const Socket& socket) {
        socket.write(head_of(whole, false));
        for (const char& byte : whole.body) {
            if (!socket.wait(interval) || !socket.write({&byte, 1})) {
                return;
            }
        }
    });
}

Responder redirect_chain(int length, std::string end) {
    return [length, end = std::move(end)](const Request& request) {
        const int left = request.query.empty() ? length : std::stoi(request.query);
        return redirect_to(left > 1 ? request.path + "?" + std::to_string(left - 1) : end)(request);
    };
}

Responder huge_head(Answer whole, std::size_t line_length, int line_count) {
    return raw([whole = std::move(whole), line_length, line_count](const Socket& socket) {
        const std::string line = "\r\nX-Camera: " + std::string(line_length, 'a');
        socket.write("HTTP/1.1 200 OK\r\nContent-Length: " + std::to_string(whole.body.size()));
        for (int count = 0; count < line_count && socket.write(line); ++count) {
        }
        socket.write("\r\n\r\n" + whole.body);
    });
}

Responder broken_promise(Answer whole) {
    return raw([whole = std::move(whole)](const Socket& socket) {
        socket.write(head_of(whole, true) + whole.body);
    });
}

Responder hang_up() {
    return raw([](const Socket&) {});
}

Responder not_http() {
    return raw(
        [](const Socket& socket) { socket.write("220 ready when you are\r\n\x01\x02\x03"); });
}

namespace {

void install_misbehaving_connections(CameraServer& server, std::chrono::milliseconds interval) {
    constexpr std::size_t ten_megabytes = 10'000'000;
    constexpr std::size_t line_length = 100;
    const Answer picture = small_picture();
    const std::size_t length = picture.body.size();
    server.answer("/stall", stall());
    server.answer("/cut-short", cut_short(picture));
    server.answer("/long-length", wrong_length(picture, length + 1000));
    server.answer("/short-length", wrong_length(picture, length - length / 4));
    server.answer("/endless", endless());
    server.answer("/drip", drip(picture, interval));
    server.answer("/slow-drip", drip(picture, std::chrono::seconds(1)));
    server.answer("/long-header", huge_head(picture, ten_megabytes, 1));
    server.answer("/many-headers", huge_head(picture, line_length, ten_megabytes / line_length));
    server.answer("/broken-promise", broken_promise(picture));
    server.answer("/hang-up", hang_up());
    server.answer("/not-http", not_http());
}

void install_misbehaving_redirects(CameraServer& server) {
    constexpr int long_chain = 100;
    server.answer("/redirect-circle", redirect_to("/redirect-circle-back"));
    server.answer("/redirect-circle-back", redirect_to("/redirect-circle"));
    server.answer("/redirect-to-file", redirect_to("file:///etc/hostname"));
    server.answer("/redirect-once", redirect_to("/good"));
    server.answer("/redirect-chain", redirect_chain(long_chain, "/good"));
}

void install_hostile_answers(CameraServer& server) {
    server.answer("/page", always(web_page()));
    server.answer("/nothing", always(empty_picture()));
    server.answer("/huge-picture", always(huge_picture()));
    server.answer("/truncated", always(truncated_picture()));
    server.answer("/one-pixel", always(plain_picture({1, 1})));
    server.answer("/one-row", always(plain_picture({30'000, 1})));
    server.answer("/one-column", always(plain_picture({1, 30'000})));
    server.answer("/large-metadata", made_on_request(picture_with_large_metadata));
    server.answer("/many-scans", made_on_request(picture_of_many_scans));
    server.answer("/animation", made_on_request(long_animation));
    server.answer("/gzip-bomb", made_on_request(gzip_bomb));
    server.answer("/pixel-bomb", made_on_request(pixel_bomb));
    server.answer("/text-bomb", made_on_request(text_bomb));
}

void install_locked_cameras(CameraServer& server) {
    const Account account{"guest", "secret"};
    server.answer("/basic", locked_by_basic(small_picture(), account));
    server.answer("/digest", locked_by_digest(small_picture(), account));
}

} // namespace

void install_misbehaviour(CameraServer& server, std::chrono::milliseconds drip_interval) {
    server.answer("/good", always(small_picture()));
    install_misbehaving_connections(server, drip_interval);
    install_misbehaving_redirects(server);
    install_hostile_answers(server);
    install_locked_cameras(server);
}

} // namespace lookfar::demo
