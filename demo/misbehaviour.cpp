#include "demo/misbehaviour.h"

#include "demo/picture_answer.h"
#include "demo/scenes.h"

#include <stdexcept>
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

unsigned byte_at(std::string_view bytes, std::size_t position) {
    return static_cast<unsigned char>(bytes.at(position));
}

/// Where the baseline frame header of a JPEG starts: segments lead from one to the next.
std::size_t find_frame_header(std::string_view jpeg) {
    constexpr unsigned baseline_frame = 0xC0;
    constexpr unsigned start_of_scan = 0xDA;
    std::size_t position = 2;
    while (byte_at(jpeg, position + 1) != baseline_frame) {
        if (byte_at(jpeg, position + 1) == start_of_scan) {
            throw std::logic_error("a JPEG without a baseline frame header");
        }
        position += 2 + byte_at(jpeg, position + 2) * 256 + byte_at(jpeg, position + 3);
    }
    return position;
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
    return raw([](ReplyStream& stream) { stream.wait_until_closed(); });
}

Responder cut_short(Answer whole) {
    return raw([whole = std::move(whole)](ReplyStream& stream) {
        stream.write(head_of(whole, false) + whole.body.substr(0, whole.body.size() / 2));
    });
}

Responder wrong_length(Answer whole, std::size_t announced) {
    return raw([whole = std::move(whole), announced](ReplyStream& stream) {
        stream.write("HTTP/1.1 200 OK\r\nContent-Type: " + whole.content_type +
                     "\r\nContent-Length: " + std::to_string(announced) + "\r\n\r\n" + whole.body);
    });
}

Responder redirect_to(std::string location) {
    Answer answer = status_page(302);
    answer.headers.push_back({"Location", std::move(location)});
    return always(std::move(answer));
}

Responder endless() {
    return raw([](ReplyStream& stream) {
        const std::string piece = small_picture().body;
        bool received = stream.write("HTTP/1.1 200 OK\r\nContent-Type: image/jpeg\r\n"
                                     "Connection: close\r\n\r\n");
        while (received) {
            received = stream.write(piece);
        }
    });
}

Responder drip(Answer whole, std::chrono::milliseconds interval) {
    return raw([whole = std::move(whole), interval](ReplyStream& stream) {
        stream.write(head_of(whole, false));
        for (const char& byte : whole.body) {
            if (!stream.wait(interval) || !stream.write({&byte, 1})) {
                return;
            }
        }
    });
}

Responder hang_up() {
    return raw([](ReplyStream&) {});
}

Responder not_http() {
    return raw([](ReplyStream& stream) { stream.write("220 ready when you are\r\n\x01\x02\x03"); });
}

Answer small_picture() {
    constexpr QSize size(160, 120);
    const Moment noon{QDateTime(QDate(2001, 6, 21), QTime(12, 0)), 0};
    return picture_answer(draw_lighthouse(size, noon), PictureFormat::jpeg);
}

Answer huge_picture() {
    // The frame header has marker, length and depth before height and width, two bytes each.
    constexpr std::size_t height_offset = 5;
    constexpr std::string_view claimed_size = "\xEA\x60\xEA\x60";
    Answer answer = small_picture();
    answer.body.replace(find_frame_header(answer.body) + height_offset, claimed_size.size(),
                        claimed_size);
    return answer;
}

Answer truncated_picture() {
    Answer answer = small_picture();
    answer.body.resize(answer.body.size() / 2);
    return answer;
}

void install_misbehaviour(CameraServer& server, std::chrono::milliseconds drip_interval) {
    const Answer picture = small_picture();
    const std::size_t length = picture.body.size();
    server.answer("/good", always(picture));
    server.answer("/stall", stall());
    server.answer("/cut-short", cut_short(picture));
    server.answer("/long-length", wrong_length(picture, length + 1000));
    server.answer("/short-length", wrong_length(picture, length - length / 4));
    server.answer("/redirect-circle", redirect_to("/redirect-circle-back"));
    server.answer("/redirect-circle-back", redirect_to("/redirect-circle"));
    server.answer("/redirect-to-file", redirect_to("file:///etc/hostname"));
    server.answer("/redirect-once", redirect_to("/good"));
    server.answer("/page", always(web_page()));
    server.answer("/nothing", always(empty_picture()));
    server.answer("/endless", endless());
    server.answer("/drip", drip(picture, drip_interval));
    server.answer("/huge-picture", always(huge_picture()));
    server.answer("/truncated", always(truncated_picture()));
    server.answer("/hang-up", hang_up());
    server.answer("/not-http", not_http());
}

} // namespace lookfar::demo
