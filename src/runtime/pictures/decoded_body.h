#pragma once

#include "runtime/bytes.h"
#include "runtime/pictures/picture_decoder.h"

#include <memory>
#include <string>

namespace lookfar {

/// The body of an answer, and the picture that it holds or the reason why it holds none.
struct DecodedBody {
    /// Shared by themselves: who keeps a picture's file needs none of its pixels.
    std::shared_ptr<const Bytes> bytes;
    DecodedPicture picture;
};

/// Never changes, so that threads may share it.
using DecodedBodyReference = std::shared_ptr<const DecodedBody>;

/// Joins a body with what it was decoded to. Where it is in no known format of pictures, its
/// failure gets the text of the complaint.
DecodedBodyReference decoded_body(Bytes bytes, DecodedPicture picture,
                                  const std::string& complaint);

} // namespace lookfar
