#include "runtime/pictures/decoded_body.h"

#include "runtime/pictures/picture_decoder.h"

#include <utility>

namespace lookfar {

namespace {

std::variant<Pixels, Failure> picture_in(const Bytes& bytes, const PixelMemory& memory) {
    try {
        return decode_pixels(bytes, memory);
    } catch (const Failure& failure) {
        return failure;
    }
}

} // namespace

BodyDecoder body_decoder(PixelMemory memory, DecodedBodyReference last) {
    return [memory = std::move(memory), last = std::move(last)](Bytes bytes) {
        if (last && last->bytes == bytes)
            return last;
        auto picture = picture_in(bytes, memory);
        return std::make_shared<const DecodedBody>(
            DecodedBody{.bytes = std::move(bytes), .picture = std::move(picture)});
    };
}

} // namespace lookfar
