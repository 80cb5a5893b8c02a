// Whatever a decoder replies, and with whatever file, is a picture that can be read to its end, or
// is refused. The input is a row of replies, each behind a byte that says what file comes with it.
#include "decoder/memory_file.h"
#include "decoder/received_pixels.h"
#include "fuzz/support/expect.h"

#include <cstring>
#include <fcntl.h>
#include <numeric>
#include <span>
#include <sys/mman.h>
#include <vector>

namespace lookfar::fuzz {
namespace {

using namespace lookfar::decoder;

constexpr std::size_t file_size = std::size_t{1} << 16U;

Descriptor unsealed_file() {
    Descriptor file(::memfd_create("lie", MFD_CLOEXEC | MFD_ALLOW_SEALING));
    expect(::ftruncate(file.number(), file_size) == 0, "there is memory");
    return file;
}

Descriptor file_of(std::uint8_t kind) {
    switch (kind % 4) {
    case 0:
        return make_memory_file(file_size);
    case 1:
        return unsealed_file();
    case 2:
        return Descriptor(::open("/dev/null", O_RDWR));
    default:
        return {};
    }
}

/// Reads and changes all that there is.
void use(Picture picture) {
    expect(picture.width() > 0 && picture.height() > 0, "a picture has a size");
    const auto sum = [](std::span<const std::uint8_t> bytes) {
        return std::accumulate(bytes.begin(), bytes.end(), 0ULL);
    };
    expect(sum(picture.bytes()) + sum(picture.opacity()) <= file_size * 5 * 255, "all is there");
    picture.rewrite([](auto, auto new_bytes) { std::ranges::fill(new_bytes, std::uint8_t{1}); });
}

void hear(const Reply& reply, const Descriptor& file, KeptFiles& files,
          std::vector<DecodedPicture>& kept) {
    try {
        DecodedPicture picture = received_picture(reply, file, files);
        if (const auto* const pixels = std::get_if<Pixels>(&picture)) {
            use(Picture(*pixels));
            kept.push_back(std::move(picture));
        } else {
            expect(!std::get<Failure>(picture).Description.empty(), "a refusal has a reason");
        }
    } catch (const Failure& failure) {
        expect(failure.Kind == FailureKind::invalid_picture, "a lie is a failed picture");
    }
}

void check(std::span<const std::uint8_t> bytes) {
    const auto files = std::make_shared<KeptFiles>();
    std::vector<DecodedPicture> kept;
    for (; bytes.size() > sizeof(Reply); bytes = bytes.subspan(1 + sizeof(Reply))) {
        Reply reply;
        std::memcpy(&reply, bytes.data() + 1, sizeof reply);
        files->lend_idle();
        hear(reply, file_of(bytes[0]), *files, kept);
        if ((bytes[0] & 0x80U) != 0)
            kept.clear();
    }
}

} // namespace
} // namespace lookfar::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    lookfar::fuzz::check({data, size});
    return 0;
}
