#include "pictures/readable_pictures.h"

#include "pictures/jpeg_decoder.h"

#include <string>

namespace lookfar {

namespace {

[[noreturn]] void refuse_size(int width, int height) {
    throw Failure(FailureKind::invalid_picture,
                  "The picture is too large: " + std::to_string(width) + " x " +
                      std::to_string(height) + " pixels.");
}

long long pixel_count(int width, int height) {
    return static_cast<long long>(width) * height;
}

} // namespace

void refuse_large(int width, int height) {
    if (pixel_count(width, height) > max_pixels)
        refuse_size(width, height);
}

void refuse_hungry(int width, int height, int bytes_for_each_pixel) {
    if (pixel_count(width, height) * bytes_for_each_pixel > max_bytes_while_decoding)
        refuse_size(width, height);
}

void refuse_many_scans(std::span<const std::uint8_t> jpeg, int width, int height) {
    const int scans = count_jpeg_scans(jpeg);
    if (scans > max_scans || scans * pixel_count(width, height) > max_pixels_in_all_scans)
        throw Failure(FailureKind::invalid_picture, "The picture is stored in too many scans.");
}

Failure picture_cut_short() {
    return Failure(FailureKind::invalid_picture, "The picture ends too early.");
}

Failure picture_not_decodable() {
    return Failure(FailureKind::invalid_picture,
                   "The picture is of a kind that can't be decoded, or damaged.");
}

} // namespace lookfar
