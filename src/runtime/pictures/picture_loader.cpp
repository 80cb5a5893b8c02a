#include "runtime/pictures/picture_loader.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>
#include <utility>

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

PictureLoader::PictureLoader(Disk& disk, DecodedBodyReference body, std::string original_name)
    : disk_(disk),
      body_(std::move(body)),
      original_(std::make_shared<const OriginalFile>(
          OriginalFile{.name = std::move(original_name), .bytes = body_->bytes})) {}

PictureReference PictureLoader::LoadPicture(const std::string& path) {
    if (!begins_with_last_body(*disk_.open(path, OpenMode::read)))
        throw Failure(FailureKind::file_in_use, path + " was changed by another program.");
    return std::make_shared<Picture>(pixels_or_failure(*body_), original_);
}

bool PictureLoader::begins_with_last_body(DiskFile& file) {
    // Asked before the bytes are read: a file that is written meanwhile is read again next time.
    const FileState state = file.state();
    if (state != known_state_ && begins_with(file, bytes()))
        known_state_ = state;
    return state == known_state_;
}

} // namespace lookfar
