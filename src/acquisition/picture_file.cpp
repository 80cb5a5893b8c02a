#include "acquisition/picture_file.h"

#include "file_numbers.h"
#include "runtime/pictures/original_file.h"
#include "runtime/runtime.h"

namespace lookfar {

std::string picture_path(const Runtime& runtime) {
    std::string path = runtime.CurrentDirectory();
    if (!path.ends_with('/'))
        path += '/';
    return path + "data.dat";
}

PictureFile::PictureFile(Runtime& runtime, const DecodedBodyReference& body,
                         const std::string& title)
    : runtime_(runtime),
      path_(picture_path(runtime)),
      loader_(runtime.platform().disk(), body,
              original_file_name(title, runtime.LocalTime(), *body->bytes)) {
    store();
}

PictureReference PictureFile::load() {
    constexpr int max_attempts = 10;
    for (int attempts = 1;; ++attempts) {
        try {
            return loader_.LoadPicture(path_);
        } catch (const Failure& failure) {
            const bool is_anothers_work = failure.Kind == FailureKind::file_in_use ||
                                          failure.Kind == FailureKind::file_not_found;
            if (!is_anothers_work || attempts == max_attempts)
                throw;
        }
        store();
    }
}

void PictureFile::store() const {
    NumberedFiles& files = runtime_.files();
    files.OpenForBinary(file_number::picture, path_);
    const FileCloser closer(files, file_number::picture);
    files.Put(file_number::picture, loader_.bytes());
}

} // namespace lookfar
