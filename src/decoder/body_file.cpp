#include "decoder/body_file.h"

#include "decoder/messages.h"

#include <algorithm>
#include <utility>

namespace lookfar::decoder {

void BodyFile::write(std::span<const std::uint8_t> bytes) {
    if (!place_ || bytes.size() > place_->size()) {
        // One picture is a little larger than the other.
        constexpr std::size_t granule = std::size_t{1} << 16U;
        const std::size_t file_size = (bytes.size() / granule + 1) * granule;
        Descriptor file = make_memory_file(file_size);
        place_ = std::make_unique<Mapping>(file, file_size, Access::write);
        descriptor_ = std::move(file);
        is_known = false;
    }
    std::ranges::copy(bytes, place_->data());
    byte_count_ = bytes.size();
}

void BodyFile::clear() {
    if (size() > largest_kept_body)
        *this = BodyFile();
}

} // namespace lookfar::decoder
