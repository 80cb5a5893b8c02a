#pragma once

#include "decoder/descriptor.h"
#include "decoder/memory_file.h"
#include "decoder/messages.h"
#include "runtime/pictures/picture_decoder.h"

#include <array>
#include <cstdint>
#include <memory>

namespace lookfar::decoder {

/// Makes pictures of a decoder's replies, which may be lies, and keeps the files in which it lays
/// its pixels again.
///
/// The decoder can write to such a file at any time. So the bytes of pixels may change while they
/// are read, which must do no more than show wrong colours: no size and no place is ever taken from
/// them.
class ReceivedPixels {
  public:
    /// The pixels in a file, or why there are none, in the decoder's words. Throws the `Failure` of
    /// a decoder that has failed for a reply that can't be true.
    DecodedPicture picture_of(const Reply& reply, const Descriptor& descriptor);

    /// A bit for each kept file whose pixels nobody has any more.
    std::uint32_t idle_files() const;

    /// Keeps none of the files: their decoder is gone. Pixels that somebody has stay.
    void forget_files() { files_ = {}; }

  private:
    struct File;
    struct Loan;

    Pixels pixels_of(const Reply& reply, const Descriptor& descriptor);
    std::shared_ptr<File> file_of(const Reply& reply, const Descriptor& descriptor,
                                  std::size_t size);
    void drop(std::uint32_t files);

    std::array<std::shared_ptr<File>, most_kept_files> files_;
    /// For the changed copies of pictures.
    PixelMemory memory_;
};

} // namespace lookfar::decoder
