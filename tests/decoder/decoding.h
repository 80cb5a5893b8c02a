#pragma once

#include "runtime/pictures/picture_decoder.h"

#include <poll.h>

#include <span>
#include <string>

namespace lookfar::testing {

/// Attends to the decoder once it has something to do.
inline void await(PictureDecoder& decoder) {
    const auto left = decoder.deadline().value_or(std::chrono::steady_clock::now()) -
                      std::chrono::steady_clock::now();
    const auto most = std::chrono::ceil<std::chrono::milliseconds>(left).count();
    pollfd socket{.fd = decoder.descriptor(), .events = POLLIN, .revents = 0};
    ::poll(&socket, 1, static_cast<int>(std::max<long>(most, 0)));
    decoder.attend();
}

inline DecodedPicture decode(PictureDecoder& decoder, std::span<const std::uint8_t> bytes) {
    decoder.start(bytes);
    while (true) {
        if (auto picture = decoder.take_result())
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
