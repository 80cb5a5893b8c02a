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

/// Sends that many redirects to itself, one after the other, the last one to the end.
Responder redirect_chain(int length, std::string end);

/// Sends so many header lines of that length before the body.
Responder huge_head(Answer whole, std::size_t line_length, int line_count);

/// Promises to keep the connection and closes it after the answer.
Responder broken_promise(Answer whole);

/// Sends a body without an announced length that never ends.
Responder endless();

/// Sends the head at once and the body one byte at a time.
Responder drip(Answer whole, std::chrono::milliseconds interval);

/// Closes the connection without an answer.
Responder hang_up();

/// Sends bytes that are no HTTP.
Responder not_http();

/// Installs /good, a good picture, and one misbehaving camera each under
/// - /stall, /cut-short, /long-length, /short-length, /endless, /drip, /slow-drip (a byte a
///   second), /long-header, /many-headers (ten megabytes each), /broken-promise, /hang-up,
///   /not-http
/// - /redirect-circle, /redirect-to-file, /redirect-once, /redirect-chain (100 of them to /good)
/// - /page, /nothing, /huge-picture, /truncated, /one-pixel, /one-row, /one-column,
///   /large-metadata, /animation, /gzip-bomb, /pixel-bomb, /text-bomb
/// - /basic, /digest, which open to the user "guest" with the password "secret".
/// The picture at /drip comes with the given time between two bytes.
void install_misbehaviour(CameraServer& server,
                          std::chrono::milliseconds drip_interval = std::chrono::milliseconds(100));

} // namespace lookfar::demo
