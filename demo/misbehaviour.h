#pragma once

#include "demo/camera_server.h"

#include <chrono>
#include <string>

namespace lookfar::demo {

/// Takes the request and never answers.
Responder stall();

/// Closes the connection without an answer.
Responder hang_up();

/// Sends status 302 with that Location.
Responder redirect_to(const std::string& location);

/// Installs /good, a good picture, and one misbehaving camera each under
/// - /stall, /cut-short, /long-length, /short-length (a Content-Length that is too long or too
///   short), /endless, /drip, /slow-drip (a byte a second), /long-header, /many-headers (ten
///   megabytes each), /broken-promise (to keep the connection), /hang-up, /not-http
/// - /redirect-circle, /redirect-to-file, /redirect-nowhere, /redirect-once,
///   /redirect-chain (100 of them to /good)
/// - /stream, /stream-short-length, /stream-bare (without lengths), /stream-odd, /stream-of-one,
///   /stream-stall
/// - /gone (status 404), /gone-with-picture, /busy (503 and no body), /unknown-format
/// - /page, /nothing, /huge-picture, /truncated, /one-pixel, /one-row, /one-column,
///   /large-metadata, /many-scans, /animation, /deflate-bomb, /pixel-bomb, /text-bomb
/// - /basic, /digest, which open to the user "guest" with the password "secret".
/// The picture at /drip comes with the given time between two bytes.
void install_misbehaviour(CameraServer& server,
                          std::chrono::milliseconds drip_interval = std::chrono::milliseconds(100));

} // namespace lookfar::demo
