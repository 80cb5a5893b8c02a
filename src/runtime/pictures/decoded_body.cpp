#include "runtime/pictures/decoded_body.h"

#include <utility>

namespace lookfar {

namespace {

std::variant<Pixels, Failure> picture_in(const Bytes& bytes, const PictureDecoder& decode,
                                         const std::string& complaint) {
    try {
        return decode(bytes);
    } catch (const Failure& failure) {
        if (failure.Kind == FailureKind::unknown_picture_format)
            return Failure(FailureKind::invalid_picture, complaint);
        return failure;
    }
}

} // namespace

DecodedBodyReference decoded_body(Bytes bytes, const PictureDecoder& decode,
                                  const std::string& complaint) {
    auto picture = picture_in(bytes, decode, complaint);
    return std::make_shared<const DecodedBody>(
        DecodedBody{.bytes = std::move(bytes), .picture = std::move(picture)});
}

} // namespace lookfar
