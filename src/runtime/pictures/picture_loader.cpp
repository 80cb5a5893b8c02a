#include "runtime/pictures/picture_loader.h"

#include "runtime/pictures/picture_decoder.h"

#include <algorithm>

namespace lookfar {

namespace {

bool begins_with(std::span<const std::uint8_t> file, const Bytes& body) {
    return file.size() >= body.size() && std::ranges::equal(file.first(body.size()), body);
}

const Pixels& pixels_or_failure(const DecodedBody& body) {
    if (const auto* const failure = std::get_if<Failure>(&body.picture))
        throw *failure;
    return std::get<Pixels>(body.picture);
}

} // namespace

PictureReference PictureLoader::load(std::span<const std::uint8_t> file) const {
    if (last_body_ && begins_with(file, last_body_->bytes))
        return std::make_shared<Picture>(pixels_or_failure(*last_body_), memory_);
    return std::make_shared<Picture>(decode_pixels(file, memory_), memory_);
}

} // namespace lookfar
