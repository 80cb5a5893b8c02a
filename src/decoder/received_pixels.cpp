#include "decoder/received_pixels.h"

#include "decoder/decoder_failures.h"
#include "decoder/memory_file.h"
#include "runtime/pictures/pixel_layout.h"

#include <algorithm>
#include <memory>
#include <string>

namespace lookfar::decoder {

namespace {

/// A control character would be part of no text.
std::string text_of(const Reply& reply) {
    std::string text(reply.text.begin(), std::ranges::find(reply.text, '\0'));
    if (text.empty())
        throw has_failed();
    std::ranges::replace_if(
        text, [](char character) { return static_cast<unsigned char>(character) < ' '; }, ' ');
    return text;
}

void refuse_size(int width, int height) {
    if (width <= 0 || height <= 0 || static_cast<long long>(width) * height > max_pixels)
        throw has_failed();
}

std::shared_ptr<Mapping> mapped(const Descriptor& descriptor, std::size_t byte_count) {
    if (!is_memory_file(descriptor, byte_count))
        throw has_failed();
    return std::make_shared<Mapping>(descriptor, byte_count, Access::write);
}

std::shared_ptr<std::uint8_t[]> bytes_of(const Reply& reply, const Descriptor& descriptor,
                                         KeptFiles& files, std::size_t byte_count) {
    const bool is_kept = reply.file < max_kept_files;
    if (!is_kept) {
        const auto file = mapped(descriptor, byte_count);
        return {file, file->data()};
    }
    if (descriptor)
        files.keep(reply.file, mapped(descriptor, byte_count));
    auto bytes = files.use(reply.file, byte_count);
    if (!bytes)
        throw has_failed();
    return bytes;
}

Pixels pixels_of(const Reply& reply, const Descriptor& descriptor, KeptFiles& files) {
    refuse_size(reply.width, reply.height);
    const PixelLayout layout(reply.width, reply.height, reply.has_opacity != 0);
    Pixels pixels = layout.pixels_in(bytes_of(reply, descriptor, files, layout.byte_count()));
    pixels.allocate = files.allocator();
    return pixels;
}

DecodedPicture picture_of(const Reply& reply, const Descriptor& descriptor, KeptFiles& files) {
    switch (reply.verdict) {
    case Verdict::decoded:
        return pixels_of(reply, descriptor, files);
    case Verdict::unknown_format:
        return Failure(FailureKind::unknown_picture_format, text_of(reply));
    case Verdict::not_decodable:
        return Failure(FailureKind::invalid_picture, text_of(reply));
    }
    throw has_failed();
}

} // namespace

DecodedPicture received_picture(const Reply& reply, const Descriptor& descriptor,
                                KeptFiles& files) {
    files.drop(reply.dropped_files);
    auto picture = picture_of(reply, descriptor, files);
    // Not before: another thread could use the picture's file for a copy.
    files.reclaim();
    return picture;
}

} // namespace lookfar::decoder
