#include "program_icon.h"

#include "resources/resources.h"
#include "runtime/picture_decoder.h"

#include <memory>

namespace lookfar {

PictureReference program_icon(int pixels) {
    return std::make_shared<Picture>(decode_pixels(resources::icon(pixels)));
}

} // namespace lookfar
