#include "pictures/jpeg_decoder.h"

#include "pictures/readable_pictures.h"
#include "runtime/pictures/pixel_layout.h"

#include <turbojpeg.h>

#include <cstddef>
#include <cstring>
#include <new>
#include <type_traits>

namespace lookfar {

namespace {

constexpr std::uint8_t marker_prefix = 0xFF;
constexpr std::uint8_t stuffed_zero = 0x00;
constexpr std::uint8_t temporary = 0x01;
constexpr std::uint8_t first_restart = 0xD0;
constexpr std::uint8_t start_of_image = 0xD8;
constexpr std::uint8_t end_of_image = 0xD9;
constexpr std::uint8_t start_of_scan = 0xDA;

bool has_no_length(std::uint8_t marker) {
    return marker == stuffed_zero || marker == temporary ||
           (marker >= first_restart && marker <= start_of_image);
}

/// The place of the next marker's prefix, or the end of the bytes. Within the compressed data
/// only a prefix tells anything, and few bytes are one: the standard search leaps over the rest.
std::size_t next_prefix(std::span<const std::uint8_t> bytes, std::size_t from) {
    const void* const found = std::memchr(bytes.data() + from, marker_prefix, bytes.size() - from);
    return found ? static_cast<std::size_t>(static_cast<const std::uint8_t*>(found) - bytes.data())
                 : bytes.size();
}

/// The markers of a JPEG, one after the other, up to its end marker.
class Markers {
  public:
    explicit Markers(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

    /// Nothing where the bytes end.
    std::optional<std::uint8_t> next() {
        while (position_ < bytes_.size()) {
            position_ = next_prefix(bytes_, position_) + 1;
            if (position_ >= bytes_.size())
                break;
            const std::uint8_t marker = bytes_[position_];
            // A prefix may be repeated before its marker.
            if (marker == marker_prefix)
                continue;
            ++position_;
            if (!has_no_length(marker) && marker != end_of_image && !skip_segment())
                break;
            return marker;
        }
        return std::nullopt;
    }

  private:
    bool skip_segment() {
        if (position_ + 1 >= bytes_.size())
            return false;
        position_ += static_cast<std::size_t>(bytes_[position_]) << 8U | bytes_[position_ + 1];
        return true;
    }

    std::span<const std::uint8_t> bytes_;
    std::size_t position_ = 0;
};

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
        throw picture_not_decodable();
    if (is_cut_short_jpeg(bytes))
        throw picture_cut_short();
}

} // namespace

bool is_cut_short_jpeg(std::span<const std::uint8_t> bytes) {
    Markers markers(bytes);
    auto marker = markers.next();
    while (marker && marker != end_of_image)
        marker = markers.next();
    return marker != end_of_image;
}

int count_jpeg_scans(std::span<const std::uint8_t> bytes) {
    int scans = 0;
    Markers markers(bytes);
    for (auto marker = markers.next(); marker && marker != end_of_image; marker = markers.next())
        if (marker == start_of_scan)
            ++scans;
    return scans;
}

std::optional<Pixels> decode_jpeg(std::span<const std::uint8_t> bytes,
                                  const PixelAllocator& allocate) {
    const Handle handle = make_handle();
    const auto header = read_header(handle.get(), bytes);
    if (!header)
        return std::nullopt;
    const auto [width, height] = *header;
    const PixelLayout layout(width, height, false);
    const auto pixels = allocate(layout.byte_count());
    const int result = tjDecompress2(handle.get(), bytes.data(), bytes.size(), pixels.get(), width,
                                     stride_of(width), height, TJPF_RGB, 0);
    if (result != 0)
        refuse_failed(handle.get(), bytes);
    clear_padding({pixels.get(), layout.byte_count()}, width);
    return layout.pixels_in(pixels);
}

} // namespace lookfar
