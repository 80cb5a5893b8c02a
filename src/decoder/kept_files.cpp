#include "decoder/kept_files.h"

#include <algorithm>
#include <utility>

namespace lookfar::decoder {

std::uint32_t KeptFiles::lend_idle() {
    const std::lock_guard lock(mutex_);
    std::uint32_t lent = 0;
    for (std::uint32_t number = 0; number < max_kept_files; ++number)
        if (places_[number].has(0, Owner::nobody)) {
            places_[number].owner = Owner::decoder;
            lent |= 1U << number;
        }
    return lent;
}

void KeptFiles::reclaim() {
    const std::lock_guard lock(mutex_);
    for (Place& place : places_)
        if (place.owner == Owner::decoder)
            place.owner = Owner::nobody;
}

void KeptFiles::drop(std::uint32_t files) {
    const std::lock_guard lock(mutex_);
    for (std::uint32_t number = 0; number < max_kept_files; ++number)
        if ((files & 1U << number) != 0)
            places_[number] = {};
}

void KeptFiles::keep(std::uint32_t number, std::shared_ptr<Mapping> file) {
    const std::lock_guard lock(mutex_);
    places_[number] = {.file = std::move(file), .owner = Owner::decoder};
}

std::shared_ptr<std::uint8_t[]> KeptFiles::use(std::uint32_t number, std::size_t byte_count) {
    return bytes_of(claim(number, byte_count));
}

void KeptFiles::forget() {
    const std::lock_guard lock(mutex_);
    places_ = {};
}

PixelAllocator KeptFiles::allocator() {
    return [files = shared_from_this()](std::size_t byte_count) {
        auto bytes = files->bytes_of(files->claim_idle(byte_count));
        return bytes ? bytes : allocate_pixels(byte_count);
    };
}

std::shared_ptr<Mapping> KeptFiles::claim(std::uint32_t number, std::size_t byte_count) {
    const std::lock_guard lock(mutex_);
    Place& place = places_[number];
    if (!place.has(byte_count, Owner::decoder))
        return nullptr;
    place.owner = Owner::program;
    return place.file;
}

std::shared_ptr<Mapping> KeptFiles::claim_idle(std::size_t byte_count) {
    const std::lock_guard lock(mutex_);
    const auto place = std::ranges::find_if(
        places_, [byte_count](const Place& each) { return each.fits(byte_count); });
    if (place == places_.end())
        return nullptr;
    place->owner = Owner::program;
    return place->file;
}

/// Null for no file.
std::shared_ptr<std::uint8_t[]> KeptFiles::bytes_of(std::shared_ptr<Mapping> file) {
    if (!file)
        return nullptr;
    std::uint8_t* const bytes = file->data();
    return {bytes, [files = shared_from_this(), file = std::move(file)](const std::uint8_t*) {
                files->let_go(file);
            }};
}

void KeptFiles::let_go(const std::shared_ptr<Mapping>& file) {
    const std::lock_guard lock(mutex_);
    const auto place = std::ranges::find(places_, file, &Place::file);
    if (place != places_.end())
        place->owner = Owner::nobody;
}

} // namespace lookfar::decoder
