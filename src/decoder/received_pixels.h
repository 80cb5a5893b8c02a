#pragma once

#include "decoder/kept_files.h"
#include "decoder/messages.h"
#include "runtime/descriptor.h"
#include "runtime/pictures/picture_decoder.h"

namespace lookfar::decoder {

/// The picture in a decoder's reply, which may be a lie, or why there is none, in the decoder's
/// words. Throws the `Failure` of a decoder that has failed for a reply that can't be true.
///
/// The decoder can write to the pixels' file at any time. So the bytes of pixels may change while
/// they are read, which must do no more than show wrong colours: no size and no place is ever read
/// from them.
DecodedPicture received_picture(const Reply& reply, const Descriptor& descriptor, KeptFiles& files);

} // namespace lookfar::decoder
