#pragma once

#include "demo/camera_server.h"
#include "demo/picture_answer.h"
#include "demo/scenes.h"

#include <QSize>
#include <chrono>
#include <span>
#include <string>
#include <string_view>

namespace lookfar::demo {

enum class Reliability { steady, fails_at_times };

/// One demonstration camera.
struct Camera {
    std::string_view title;
    std::string_view path;
    QSize size; ///< In pixels.
    PictureFormat format;
    Scene scene;
    std::chrono::milliseconds delay; ///< How long the camera takes to answer.
    Reliability reliability;
};

/// All demonstration cameras, in the order of the list.
std::span<const Camera> cameras();

/// The stamped picture of a camera, encoded. Needs a QGuiApplication for the stamp's font.
Answer take_picture(const Camera& camera, const Moment& moment);

/// Makes the server answer for every camera with a picture of the present local time, and for "/"
/// with a page that shows them all. Each request for a camera shows its next frame. Of three
/// requests the camera that fails at times fails the third, alternately by a page with status 503
/// and by closing the connection.
void install_cameras(CameraServer& server);

/// The text of a camera list: for each camera a line with the title and a line with the URL,
/// each ended by CR LF.
std::string camera_list(const CameraServer& server);

} // namespace lookfar::demo
