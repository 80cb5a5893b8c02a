#pragma once

#include "demo/camera_server.h"
#include "demo/scenes.h"

#include <QSize>
#include <span>
#include <string>
#include <string_view>

namespace lookfar::demo {

/// How a camera answers: at once, after four seconds, with no picture at every third request, or
/// with a stream of pictures.
enum class Line { good, slow, failing, stream };

/// One demonstration camera. It sends a GIF where the path says so, and a JPEG otherwise.
struct Camera {
    std::string_view title;
    std::string_view path;
    QSize size; ///< In pixels.
    Scene scene;
    Line line = Line::good;
};

/// All demonstration cameras, in the order of the list.
std::span<const Camera> cameras();

/// The stamped picture of a camera, encoded. Needs a QGuiApplication for the stamp's font.
Answer take_picture(const Camera& camera, const Moment& moment);

/// Makes the server answer for every camera with a picture of the present local time. Each
/// request for a camera shows its next frame. Every third request over a failing line gets, by
/// turns, a page with status 503 or a connection that is closed without an answer.
void install_cameras(CameraServer& server);

/// The text of a camera list: for each camera a line with the title and a line with the URL,
/// each ended by CR LF.
std::string camera_list(const CameraServer& server);

} // namespace lookfar::demo
