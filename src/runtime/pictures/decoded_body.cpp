#include "runtime/pictures/decoded_body.h"

#include <utility>

namespace lookfar {

DecodedBodyReference decoded_body(Bytes bytes, DecodedPicture picture,
                                  const std::string& complaint) {
    const auto* const failure = std::get_if<Failure>(&picture);
    if (failure && failure->Kind == FailureKind::unknown_picture_format)
        picture = Failure(FailureKind::invalid_picture, complaint);
    return std::make_shared<const DecodedBody>(DecodedBody{
        .bytes = std::make_shared<const Bytes>(std::move(bytes)), .picture = std::move(picture)});
}

} // namespace lookfar
