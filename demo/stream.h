#pragma once

#include "demo/connection.h"

#include <chrono>
#include <cstddef>
#include <functional>
#include <string>

namespace lookfar::demo {

/// How a camera writes a stream of pictures.
struct StreamStyle {
    std::string boundary = "frame";      ///< As the answer's head tells it.
    std::string delimiter = "--frame";   ///< As it stands in the body.
    std::string preamble = {};           ///< What the body starts with.
    bool tells_length = true;            ///< In each part's header.
    std::size_t untold_bytes = 0;        ///< By so many the told length is too short.
    std::chrono::milliseconds pause{50}; ///< Between two pictures.
};

/// Sends a picture after the other until the client leaves.
RawAnswer stream(const std::function<Answer()>& next_picture, const StreamStyle& style = {});

/// Sends one picture as a stream of it, which ends behind it.
RawAnswer stream_of_one(const Answer& picture);

/// Sends a stream's first picture up to its middle and then nothing more.
RawAnswer stalling_stream(const Answer& picture);

} // namespace lookfar::demo
