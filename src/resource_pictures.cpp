#include "resource_pictures.h"

#include "pictures/image_pixels.h"
#include "resources/resources.h"

#include <QImage>

#include <cstdint>
#include <memory>
#include <span>

namespace lookfar {

namespace {

PictureReference decoded(std::span<const std::uint8_t> png) {
    return std::make_shared<Picture>(pixels_of(png_image(png), allocate_pixels));
}

} // namespace

PictureReference program_icon(int pixels) {
    return decoded(resources::icon(pixels));
}

PictureReference test_card() {
    return decoded(resources::test_card());
}

PictureReference splash_picture() {
    return decoded(resources::splash());
}

} // namespace lookfar
