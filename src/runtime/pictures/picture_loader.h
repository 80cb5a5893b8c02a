#pragma once

#include "runtime/files/disk.h"
#include "runtime/pictures/decoded_body.h"

#include <string>
#include <utility>

namespace lookfar {

/// Makes picture objects of what the last transfer has brought and decoded.
class PictureLoader {
  public:
    /// Decodes the body of the next answer ahead, on the thread of its transfer.
    BodyDecoder decoder_ahead() const { return body_decoder(memory_, last_body_); }
    /// Keeps the body of an answer in mind, with what was decoded from it.
    void remember(DecodedBodyReference body) { last_body_ = std::move(body); }

    /// A picture object of its own, out of a file that begins with the body kept in mind, whatever
    /// follows there. Throws that body's failure where it is no picture, one of the kind
    /// `file_in_use` where the file begins otherwise, and another one where it can't be read.
    PictureReference load(Disk& disk, const std::string& path) const;

  private:
    PixelMemory memory_;
    DecodedBodyReference last_body_;
};

} // namespace lookfar
