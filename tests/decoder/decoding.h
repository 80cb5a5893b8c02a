#pragma once

#include "runtime/pictures/picture_decoder.h"

#include <poll.h>

#include <algorithm>
#include <chrono>
#include <span>
#include <string>

namespace lookfar::testing {

/// Waits until the decoder has something to do.
inline void wait_for(const PictureDecoder& decoder) {
    using std::chrono::milliseconds;
    int longest = -1;
    if (const auto deadline = decoder.deadline()) {
        const auto left =
            std::chrono::ceil<milliseconds>(*deadline - std::chrono::steady_clock::now());
        longest = static_cast<int>(std::max(left, milliseconds::zero()).count());
    }
    pollfd socket{.fd = decoder.descriptor(), .events = POLLIN, .revents = 0};
    ::poll(&socket, 1, longest);
}

/// Waits for it, and attends to it.
inline void await(PictureDecoder& decoder) {
    wait_for(decoder);
    decoder.attend();
}

inline DecodedPicture decode(PictureDecoder& decoder, std::span<const std::uint8_t> bytes) {
    decoder.start(bytes);
    while (true) {
        if (auto picture = decoder.collect_result())
            return *std::move(picture);
        await(decoder);
    }
}

/// "decoded", or the text of the failure.
inline std::string outcome_of(const DecodedPicture& picture) {
    const auto* const failure = std::get_if<Failure>(&picture);
    return failure ? failure->Description : "decoded";
}

} // namespace lookfar::testing
