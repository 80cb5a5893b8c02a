// A JPEG is cut short up to some byte and whole from there on, whatever follows.
#include "runtime/jpeg_markers.h"
#include "fuzz/support/expect.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace lookfar::fuzz {
namespace {

using Bytes = std::vector<std::uint8_t>;

/// In a buffer of its own of exactly this size, so that no byte behind it can be read.
bool is_cut_short(std::span<const std::uint8_t> bytes) {
    return is_cut_short_jpeg(Bytes(bytes.begin(), bytes.end()));
}

void check(std::span<const std::uint8_t> segments) {
    Bytes jpeg{0xFF, 0xD8};
    jpeg.insert(jpeg.end(), segments.begin(), segments.end());
    bool is_whole = false;
    for (std::size_t size = 2; size <= jpeg.size(); ++size) {
        const std::span bytes = std::span(jpeg).first(size);
        const bool was_whole = is_whole;
        is_whole = !is_cut_short(bytes);
        expect(is_whole || !was_whole, "more bytes cut no picture short");
        expect(!is_whole || was_whole || (bytes[size - 2] == 0xFF && bytes[size - 1] == 0xD9),
               "a picture becomes whole with its end marker");
    }
}

} // namespace
} // namespace lookfar::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t longest_for_every_prefix = 512;
    lookfar::fuzz::is_cut_short({data, size});
    if (size <= longest_for_every_prefix)
        lookfar::fuzz::check({data, size});
    return 0;
}
