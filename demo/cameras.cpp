#include "demo/cameras.h"

#include "demo/misbehaviour.h"

#include <QString>
#include <array>
#include <atomic>
#include <memory>

namespace lookfar::demo {
namespace {

using namespace std::chrono_literals;

constexpr std::array camera_table{
    Camera{"Eiffeltower",
           "/eiffel1.jpg",
           {640, 480},
           PictureFormat::jpeg,
           draw_tower,
           0ms,
           Reliability::steady},
    Camera{"Old Harbour",
           "/harbour.jpg",
           {800, 600},
           PictureFormat::jpeg,
           draw_harbour,
           0ms,
           Reliability::steady},
    Camera{"Summit View",
           "/mountain/full.jpg",
           {1920, 1080},
           PictureFormat::jpeg,
           draw_mountain,
           0ms,
           Reliability::steady},
    Camera{"Long Bridge",
           "/bridge.jpg",
           {1600, 500},
           PictureFormat::jpeg,
           draw_bridge,
           0ms,
           Reliability::steady},
    Camera{"Lighthouse Point",
           "/lighthouse.jpg",
           {480, 800},
           PictureFormat::jpeg,
           draw_lighthouse,
           0ms,
           Reliability::steady},
    Camera{"High Street",
           "/street.gif",
           {320, 240},
           PictureFormat::gif,
           draw_street,
           0ms,
           Reliability::steady},
    Camera{"Airfield",
           "/airport.jpg",
           {640, 480},
           PictureFormat::jpeg,
           draw_airport,
           0ms,
           Reliability::steady},
    Camera{"Mountain Lake (slow line)",
           "/lake.jpg",
           {640, 480},
           PictureFormat::jpeg,
           draw_mountain,
           4s,
           Reliability::steady},
    Camera{"Fishing Pier (fails at times)",
           "/pier.jpg",
           {352, 288},
           PictureFormat::jpeg,
           draw_harbour,
           0ms,
           Reliability::fails_at_times},
};

Reply fail(unsigned failure, const Request& request) {
    if (failure % 2 == 0) {
        return status_page(503);
    }
    return hang_up()(request);
}

Reply reply_of(const Camera& camera, unsigned frame, const Request& request) {
    if (camera.reliability == Reliability::fails_at_times && frame % 3 == 2) {
        return fail(frame / 3, request);
    }
    return take_picture(camera, {QDateTime::currentDateTime(), frame});
}

Responder responder_of(const Camera& camera) {
    return [&camera, next_frame = std::make_shared<std::atomic<unsigned>>(0)](
               const Request& request) { return reply_of(camera, (*next_frame)++, request); };
}

Answer index_page() {
    std::string page = "<!DOCTYPE html><html><head><title>Cameras</title></head>"
                       "<body style='font-family: sans-serif'><h1>Cameras</h1>\n";
    for (const Camera& camera : cameras()) {
        const std::string path(camera.path);
        page += "<p><a href='" + path;
        page += "'><img src='" + path;
        page += "' height='120' alt=''> ";
        page += camera.title;
        page += "</a></p>\n";
    }
    return {.status = 200,
            .content_type = "text/html; charset=utf-8",
            .body = page + "</body></html>\n",
            .headers = {},
            .delay = {}};
}

} // namespace

std::span<const Camera> cameras() {
    return camera_table;
}

Answer take_picture(const Camera& camera, const Moment& moment) {
    QImage picture = camera.scene(camera.size, moment);
    stamp(picture, QString::fromUtf8(camera.title), moment);
    Answer answer = picture_answer(picture, camera.format);
    answer.delay = camera.delay;
    return answer;
}

void install_cameras(CameraServer& server) {
    server.answer("/", [](const Request&) { return index_page(); });
    for (const Camera& camera : cameras()) {
        server.answer(std::string(camera.path), responder_of(camera));
    }
}

std::string camera_list(const CameraServer& server) {
    std::string list;
    for (const Camera& camera : cameras()) {
        list += std::string(camera.title) + "\r\n" + server.url(camera.path) + "\r\n";
    }
    return list;
}

} // namespace lookfar::demo
