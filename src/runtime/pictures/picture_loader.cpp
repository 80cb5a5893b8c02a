#include "runtime/pictures/picture_loader.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>

namespace lookfar {

namespace {

bool begins_with(DiskFile& file, std::span<const std::uint8_t> bytes) {
    std::array<std::uint8_t, 65536> block{};
    while (!bytes.empty()) {
        const std::size_t wanted = std::min(block.size(), bytes.size());
        const std::size_t count = file.read(std::span(block).first(wanted));
        if (count == 0 || !std::ranges::equal(std::span(block).first(count), bytes.first(count)))
            return false;
        bytes = bytes.subspan(count);
    }
    return true;
}

const Pixels& pixels_or_failure(const DecodedBody& body) {
    if (const auto* const failure = std::get_if<Failure>(&body.picture))
        throw *failure;
    return std::get<Pixels>(body.picture);
}

} // namespace

PictureReference PictureLoader::load(Disk& disk, const std::string& path) const {
    if (!last_body_ || !begins_with(*disk.open(path, OpenMode::read), last_body_->bytes))
        throw Failure(FailureKind::file_in_use, path + " was changed by another program.");
    return std::make_shared<Picture>(pixels_or_failure(*last_body_), memory_);
}

} // namespace lookfar
