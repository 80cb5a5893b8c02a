#pragma once

#include "runtime/bytes.h"
#include "runtime/failure.h"
#include "runtime/pictures/picture.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
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

/// The pixels of the picture that the bytes hold. Throws a `Failure` where they hold none, of the
/// kind `unknown_picture_format` where they don't even begin as one; and std::bad_alloc. May be
/// called on any thread.
using PictureDecoder = std::function<Pixels(std::span<const std::uint8_t> bytes)>;

/// Decodes a body. Where that is in no known format of pictures, its failure has the text of the
/// complaint. Throws nothing but std::bad_alloc.
DecodedBodyReference decoded_body(Bytes bytes, const PictureDecoder& decode,
                                  const std::string& complaint);

} // namespace lookfar
