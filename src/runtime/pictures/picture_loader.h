#pragma once

#include "runtime/files/disk.h"
#include "runtime/pictures/decoded_body.h"

#include <memory>
#include <optional>
#include <string>

namespace lookfar {

/// Makes picture objects of a body, out of a file that begins with it.
class PictureLoader {
  public:
    /// The pictures are told the name of the file that they are of.
    PictureLoader(Disk& disk, DecodedBodyReference body, std::string original_name = {});

    /// What a file must begin with.
    const Bytes& bytes() const { return *body_->bytes; }

    /// A picture object of its own, whatever stands behind the body in the file. Throws the body's
    /// failure where it is no picture, one of the kind `file_in_use` where the file begins
    /// otherwise, and another one where it can't be read.
    PictureReference LoadPicture(const std::string& path);

  private:
    bool begins_with_last_body(DiskFile& file);

    Disk& disk_;
    DecodedBodyReference body_;
    std::shared_ptr<const OriginalFile> original_;
    /// In this state a file began with the body, and need not be read again.
    std::optional<FileState> known_state_;
};

} // namespace lookfar
