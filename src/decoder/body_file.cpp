#include "decoder/body_file.h"

#include "decoder/memory_file.h"
#include "decoder/messages.h"

namespace lookfar::decoder {

void BodyFile::write(std::span<const std::uint8_t> bytes) {
    if (!descriptor_ || bytes.size() > size_) {
        // One picture is a little larger than the other.
        constexpr std::size_t granule = std::size_t{1} << 16U;
        size_ = (bytes.size() / granule + 1) * granule;
        descriptor_ = make_memory_file(size_);
        is_known = false;
    }
    write_to(descriptor_, bytes);
    byte_count_ = bytes.size();
}

void BodyFile::clear() {
    if (size_ > largest_kept_body)
        *this = BodyFile();
}

} // namespace lookfar::decoder
