#pragma once

#include "runtime/files/disk.h"
#include "runtime/pictures/decoded_body.h"

#include <string>
#include <utility>

namespace lookfar {

/// Makes picture objects from files. What the last transfer has decoded already is not decoded
/// again.
class PictureLoader {
  public:
    /// Decodes the body of the next answer ahead, on the thread of its transfer.
    BodyDecoder decoder_ahead() const { return body_decoder(memory_, last_body_); }
    /// Keeps the body of an answer in mind, with what was decoded from it.
    void remember(DecodedBodyReference body) { last_body_ = std::move(body); }

    /// A picture object of its own. A file that begins with the body kept in mind yields that
    /// body's picture or failure, whatever follows in the file. Throws a `Failure` as
    /// `decode_pixels` does, and where the file can't be read.
    PictureReference load(Disk& disk, const std::string& path) const;

  private:
    PixelMemory memory_;
    DecodedBodyReference last_body_;
};

} // namespace lookfar
