#pragma once

#include "runtime/files/disk.h"
#include "runtime/pictures/decoded_body.h"

#include <optional>
#include <string>

namespace lookfar {

/// Makes picture objects of what the last transfer has brought and decoded.
class PictureLoader {
  public:
    /// Keeps the body of an answer in mind, with what was decoded from it.
    void remember(DecodedBodyReference body);

    /// A picture object of its own, out of a file that begins with the body kept in mind, whatever
    /// follows there. Throws that body's failure where it is no picture, one of the kind
    /// `file_in_use` where the file begins otherwise, and another one where it can't be read.
    PictureReference load(Disk& disk, const std::string& path);

  private:
    bool is_good(DiskFile& file);

    DecodedBodyReference last_body_;
    /// In this state a file began with the last body, and need not be read again.
    std::optional<FileState> good_state_;
};

} // namespace lookfar
