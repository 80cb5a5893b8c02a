#pragma once

#include "runtime/pictures/picture_loader.h"

#include <string>

namespace lookfar {

class Runtime;

/// The path of the file that holds the last answer's bytes: "data.dat" in the current directory.
/// It is made anew for every use, since the directory may have changed.
std::string picture_path(const Runtime& runtime);

/// That file, with the body of the last answer in it.
///
/// Another program in the same folder uses the same file, and may write or delete it at any moment.
/// What is loaded is never another one's picture all the same: where the file doesn't begin with
/// the body any more, the body is stored once more.
class PictureFile {
  public:
    /// Stores the body over the start of the file. Throws a `Failure` where that fails. The body
    /// has just come from the camera of that title.
    PictureFile(Runtime& runtime, const DecodedBodyReference& body, const std::string& title);

    /// A picture object of its own. Throws a `Failure` where the body is no picture, where the file
    /// can't be read or written, and where other programs write it again and again.
    PictureReference load();

  private:
    void store() const;

    Runtime& runtime_;
    std::string path_;
    PictureLoader loader_;
};

} // namespace lookfar
