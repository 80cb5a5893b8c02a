#include "demo/cameras.h"

#include "demo/misbehaviour.h"
#include "demo/picture_answer.h"
#include "demo/stream.h"

#include <array>
#include <atomic>
#include <chrono>
#include <memory>

namespace lookfar::demo {

namespace {

constexpr std::array camera_table{
    Camera{"Old Harbour", "/harbour.jpg", {800, 600}, paint_harbour},
    Camera{"Lighthouse Point (tall)", "/lighthouse.jpg", {480, 800}, paint_lighthouse},
    Camera{"Summit View (wide)", "/summit.jpg", {2560, 800}, paint_mountain},
    Camera{"Cape Beacon (GIF)", "/beacon.gif", {320, 240}, paint_lighthouse},
    Camera{"Mountain Lake (slow line)", "/lake.jpg", {640, 480}, paint_mountain, Line::slow},
    Camera{"Fishing Pier (fails at times)", "/pier.jpg", {352, 288}, paint_harbour, Line::failing},
    Camera{"Ferry Landing (stream)", "/ferry.mjpg", {640, 480}, paint_harbour, Line::stream},
};

Reply reply_of(const Camera& camera, unsigned frame, const Request& request) {
    if (camera.line == Line::failing && frame % 3 == 2)
        return frame % 2 == 0 ? status_page(503) : hang_up()(request);
    auto picture_of_now = [&camera, frame]() mutable {
        return take_picture(camera, {QDateTime::currentDateTime(), frame++});
    };
    if (camera.line == Line::stream)
        return stream(picture_of_now, {.pause = std::chrono::milliseconds(250)});
    return picture_of_now();
}

} // namespace

std::span<const Camera> cameras() {
    return camera_table;
}

Answer take_picture(const Camera& camera, const Moment& moment) {
    const bool is_gif = camera.path.ends_with(".gif");
    QImage picture = picture_of(camera.scene, camera.size, moment);
    stamp(picture, QString::fromUtf8(camera.title), moment);
    Answer answer = picture_answer(picture, is_gif ? PictureFormat::gif : PictureFormat::jpeg);
    answer.delay = std::chrono::seconds(camera.line == Line::slow ? 4 : 0);
    return answer;
}

void install_cameras(CameraServer& server) {
    for (const Camera& camera : cameras()) {
        auto next_frame = std::make_shared<std::atomic<unsigned>>(0);
        server.answer(std::string(camera.path), [&camera, next_frame](const Request& request) {
            return reply_of(camera, (*next_frame)++, request);
        });
    }
}

std::string camera_list(const CameraServer& server) {
    std::string list;
    for (const Camera& camera : cameras())
        list += std::string(camera.title) + "\r\n" + server.url(camera.path) + "\r\n";
    return list;
}

} // namespace lookfar::demo
