#pragma once

#include "runtime/runtime.h"

#include <string>

namespace lookfar {

/// The path of the file that holds the last answer's bytes: "data.dat" in the current directory.
/// It is made anew for every use, since the directory may have changed.
inline std::string picture_path(const Runtime& runtime) {
    std::string path = runtime.CurrentDirectory();
    if (!path.ends_with('/'))
        path += '/';
    return path + "data.dat";
}

} // namespace lookfar
