// A JPEG is cut short up to some byte and whole from there on, and more bytes take no scan away.
#include "runtime/pictures/jpeg_markers.h"
#include "fuzz/support/expect.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace lookfar::fuzz {
namespace {

using Bytes = std::vector<std::uint8_t>;

struct Answers {
    bool is_whole = false;
    int scans = 0;
};

/// From a buffer of its own of exactly this size, so that no byte behind it can be read.
Answers answers_for(std::span<const std::uint8_t> bytes) {
    const Bytes own(bytes.begin(), bytes.end());
    return {.is_whole = !is_cut_short_jpeg(own), .scans = count_jpeg_scans(own)};
}

void check(std::span<const std::uint8_t> segments) {
    Bytes jpeg{0xFF, 0xD8};
    jpeg.insert(jpeg.end(), segments.begin(), segments.end());
    Answers before;
    for (std::size_t size = 2; size <= jpeg.size(); ++size) {
        const std::span bytes = std::span(jpeg).first(size);
        const Answers now = answers_for(bytes);
        expect(now.is_whole || !before.is_whole, "more bytes cut no picture short");
        expect(now.scans >= before.scans, "more bytes take no scan away");
        const bool ends = bytes[size - 2] == 0xFF && bytes[size - 1] == 0xD9;
        expect(before.is_whole || !now.is_whole || ends,
               "a picture becomes whole with its end marker");
        before = now;
    }
}

} // namespace
} // namespace lookfar::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t longest_for_every_prefix = 512;
    lookfar::fuzz::answers_for({data, size});
    if (size <= longest_for_every_prefix)
        lookfar::fuzz::check({data, size});
    return 0;
}
