#pragma once

#include "runtime/bytes.h"
#include "runtime/failure.h"
#include "runtime/pictures/picture.h"

#include <functional>
#include <memory>
#include <string>
#include <variant>

namespace lookfar {

/// The body of an answer, and the picture that it holds or the reason why it holds none.
struct DecodedBody {
    Bytes bytes;
    std::variant<Pixels, Failure> picture;
};

/// Never changes, so that threads may share it.
using DecodedBodyReference = std::shared_ptr<const DecodedBody>;

/// Decodes a body on the thread of a transfer. Where the body is in no format of pictures that is
/// read, its failure has the text of the complaint. Throws nothing but std::bad_alloc.
using BodyDecoder = std::function<DecodedBodyReference(Bytes body, const std::string& complaint)>;

/// The decoder for the next answer. A body that equals the last one is not decoded again where that
/// was a picture.
BodyDecoder body_decoder(PixelMemory memory, DecodedBodyReference last);

} // namespace lookfar
