#include "runtime/pictures/decoded_body.h"

#include "runtime/pictures/picture_decoder.h"
#include "runtime/pictures/picture_formats.h"

#include <utility>

namespace lookfar {

namespace {

std::variant<Pixels, Failure> picture_in(const Bytes& bytes, const PixelMemory& memory,
                                         const std::string& complaint) {
    try {
        return decode_pixels(bytes, memory);
    } catch (const Failure& failure) {
        return is_in_readable_format(bytes) ? failure : Failure(failure.Kind, complaint);
    }
}

bool is_picture(const DecodedBody& body) {
    return std::holds_alternative<Pixels>(body.picture);
}

} // namespace

BodyDecoder body_decoder(PixelMemory memory, DecodedBodyReference last) {
    return [memory = std::move(memory), last = std::move(last)](Bytes bytes,
                                                                const std::string& complaint) {
        if (last && is_picture(*last) && last->bytes == bytes)
            return last;
        auto picture = picture_in(bytes, memory, complaint);
        return std::make_shared<const DecodedBody>(
            DecodedBody{.bytes = std::move(bytes), .picture = std::move(picture)});
    };
}

} // namespace lookfar
