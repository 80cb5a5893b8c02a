#include "decoder/program/pixel_files.h"

#include "runtime/pictures/pixel_memory.h"

#include <algorithm>
#include <new>
#include <utility>

namespace lookfar::decoder {

struct PixelFiles::File {
    explicit File(std::size_t size)
        : descriptor(make_memory_file(size)), bytes(descriptor, size, Access::write) {}

    /// The program has it.
    bool is_known() const { return !descriptor; }
    bool is_idle() const { return !is_in_use && !is_lent; }
    /// Without wasting half of it.
    bool fits(std::size_t byte_count) const {
        return bytes.size() >= byte_count && bytes.size() / 2 <= byte_count;
    }

    /// Empty once the program has it.
    Descriptor descriptor;
    Mapping bytes;
    bool is_in_use = false;
    bool is_lent = false;
};

std::shared_ptr<std::uint8_t[]> PixelFiles::allocate(std::size_t byte_count) {
    auto file = idle_file(byte_count);
    if (!file)
        file = new_file(byte_count);
    file->is_in_use = true;
    return {file->bytes.data(), [file](const std::uint8_t*) { file->is_in_use = false; }};
}

/// One that fits, if there is one. Those that don't are dropped, or they would stay for good once
/// the pictures have another size.
std::shared_ptr<PixelFiles::File> PixelFiles::idle_file(std::size_t byte_count) {
    for (std::uint32_t number = 0; number < max_kept_files; ++number) {
        auto& file = files_[number];
        if (!file || !file->is_idle())
            continue;
        if (file->fits(byte_count))
            return file;
        file.reset();
        dropped_ |= 1U << number;
    }
    return nullptr;
}

std::shared_ptr<PixelFiles::File> PixelFiles::new_file(std::size_t byte_count) {
    const auto place = std::ranges::find(files_, nullptr);
    if (place == files_.end())
        throw no_memory_for_a_picture();
    try {
        *place = std::make_shared<File>(byte_count);
    } catch (const std::bad_alloc&) {
        throw no_memory_for_a_picture();
    }
    return *place;
}

PixelFiles::Lent PixelFiles::lend(const std::uint8_t* place) {
    const auto found = std::ranges::find_if(
        files_, [place](const auto& file) { return file && file->bytes.data() == place; });
    File& file = **found;
    Lent lent{.number = static_cast<std::uint32_t>(found - files_.begin()),
              .descriptor = std::move(file.descriptor)};
    file.is_lent = true;
    if (file.bytes.size() > largest_kept_pixels) {
        lent.number = max_kept_files;
        found->reset();
    }
    return lent;
}

void PixelFiles::set_idle(std::uint32_t files) {
    for (std::uint32_t number = 0; number < max_kept_files; ++number)
        if (files_[number])
            files_[number]->is_lent = files_[number]->is_known() && (files & 1U << number) == 0;
}

std::uint32_t PixelFiles::collect_dropped() {
    return std::exchange(dropped_, 0);
}

} // namespace lookfar::decoder
