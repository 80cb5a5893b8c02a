#include "pictures/jpeg_decoder.h"

#include "pictures/jpeg_markers.h"
#include "runtime/failure.h"

#include <turbojpeg.h>

#include <new>
#include <string>
#include <type_traits>

namespace lookfar {

namespace {

struct HandleCleanup {
    void operator()(tjhandle handle) const { tjDestroy(handle); }
};
using Handle = std::unique_ptr<std::remove_pointer_t<tjhandle>, HandleCleanup>;

struct Header {
    int width = 0;
    int height = 0;
};

Handle make_handle() {
    Handle handle(tjInitDecompress());
    if (!handle)
        throw std::bad_alloc();
    return handle;
}

bool is_rgb(int colour_space) {
    return colour_space == TJCS_RGB || colour_space == TJCS_YCbCr || colour_space == TJCS_GRAY;
}

/// Nothing for a picture that can't be turned into red, green and blue.
std::optional<Header> read_header(tjhandle handle, std::span<const std::uint8_t> bytes) {
    Header header;
    int sampling = 0;
    int colour_space = 0;
    const int result = tjDecompressHeader3(handle, bytes.data(), bytes.size(), &header.width,
                                           &header.height, &sampling, &colour_space);
    return result == 0 && is_rgb(colour_space) ? std::optional(header) : std::nullopt;
}

/// Damage within a picture is shown, as browsers do; a part that is missing at its end is not made
/// up.
void refuse_failed(tjhandle handle, std::span<const std::uint8_t> bytes) {
    if (tjGetErrorCode(handle) != TJERR_WARNING)
        throw Failure(FailureKind::invalid_picture,
                      std::string("The picture can't be decoded: ") + tjGetErrorStr2(handle));
    refuse_cut_short_jpeg(bytes);
}

} // namespace

std::optional<Pixels> decode_jpeg(std::span<const std::uint8_t> bytes, const PixelMemory& memory) {
    const Handle handle = make_handle();
    const auto header = read_header(handle.get(), bytes);
    if (!header)
        return std::nullopt;
    const auto [width, height] = *header;
    const int stride = stride_of(width);
    const auto byte_count = static_cast<std::size_t>(stride) * static_cast<std::size_t>(height);
    auto pixels = memory.take(byte_count);
    const int result = tjDecompress2(handle.get(), bytes.data(), bytes.size(), pixels.get(), width,
                                     stride, height, TJPF_RGB, 0);
    if (result != 0)
        refuse_failed(handle.get(), bytes);
    clear_padding({pixels.get(), byte_count}, width);
    return Pixels{.width = width,
                  .height = height,
                  .stride = stride,
                  .bytes = std::move(pixels),
                  .opacity = {},
                  .memory = memory};
}

} // namespace lookfar
