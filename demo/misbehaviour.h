#pragma once

#include "demo/camera_server.h"
#include "demo/connection.h"
#include "demo/http.h"

#include <chrono>
#include <cstddef>
#include <string>

namespace lookfar::demo {

/// Takes the request and never answers.
Responder stall();

/// Announces the whole body, sends half of it and closes the connection.
Responder cut_short(Answer whole);

/// Sends the whole body under a Content-Length of the given number of bytes, then closes.
Responder wrong_length(Answer whole, std::size_t announced);

/// Sends status 302 with that Location.
Responder redirect_to(std::string location);

/// Sends a body without an announced length that never ends.
Responder endless();

/// Sends the head at once and the body one byte at a time.
Responder drip(Answer whole, std::chrono::milliseconds interval);

/// Closes the connection without an answer.
Responder hang_up();

/// Sends bytes that are no HTTP.
Responder not_http();

/// A good JPEG picture of 160 x 120 pixels.
Answer small_picture();

/// A JPEG whose header claims 60000 x 60000 pixels.
Answer huge_picture();

/// A JPEG that ends half-way, with a Content-Length that fits.
Answer truncated_picture();

/// Installs one misbehaving camera each under /stall, /cut-short, /long-length, /short-length,
/// /redirect-circle, /redirect-to-file, /page, /nothing, /endless, /drip, /huge-picture,
/// /truncated, /hang-up and /not-http; and /redirect-once, which leads to /good, a good picture.
/// The picture at /drip comes with the given time between two bytes.
void install_misbehaviour(CameraServer& server,
                          std::chrono::milliseconds drip_interval = std::chrono::milliseconds(100));

} // namespace lookfar::demo
