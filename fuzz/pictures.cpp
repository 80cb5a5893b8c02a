// Any bytes are a picture in good order, or are refused with the one failure of pictures.
#include "fuzz/support/expect.h"
#include "pictures/decode_pixels.h"
#include "pictures/readable_pictures.h"
#include "runtime/failure.h"

#include <cstdint>
#include <numeric>
#include <span>

namespace lookfar::fuzz {
namespace {

/// Has the address sanitizer see that all of them are there.
std::uint64_t sum_of(std::span<const std::uint8_t> bytes) {
    return std::accumulate(bytes.begin(), bytes.end(), std::uint64_t{0});
}

void check_order(const Picture& picture) {
    expect(picture.width() > 0 && picture.height() > 0, "a picture has a size");
    expect(static_cast<long long>(picture.width()) * picture.height() <= max_pixels,
           "a picture is no larger than allowed");
    expect(picture.stride() == stride_of(picture.width()), "rows are padded to four bytes");
    expect(sum_of(picture.bytes()) <= picture.bytes().size() * 255, "every byte is there");
    const std::size_t pixels =
        static_cast<std::size_t>(picture.width()) * static_cast<std::size_t>(picture.height());
    expect(picture.opacity().empty() || picture.opacity().size() == pixels,
           "a pixel has one opacity");
    expect(sum_of(picture.opacity()) <= pixels * 255, "every opacity is there");
}

void check(std::span<const std::uint8_t> bytes) {
    const DecodedPicture decoded = decoded_picture(bytes);
    if (const auto* const failure = std::get_if<Failure>(&decoded)) {
        expect(failure->Kind == FailureKind::invalid_picture ||
                   failure->Kind == FailureKind::unknown_picture_format,
               "a refusal is that of a picture");
        expect(!failure->Description.empty(), "a refusal has a reason");
        return;
    }
    check_order(Picture(std::get<Pixels>(decoded)));
}

} // namespace
} // namespace lookfar::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    lookfar::fuzz::check({data, data + size});
    return 0;
}
