#include "jpeg_decode.h"

#include <cstddef>
#include <cstdio>

#include <jpeglib.h>

namespace lookfar::bench {

std::unique_ptr<std::uint8_t[]> decode_jpeg(const Bytes& file) {
    jpeg_decompress_struct decoder{};
    jpeg_error_mgr errors{};
    decoder.err = jpeg_std_error(&errors);
    jpeg_create_decompress(&decoder);
    jpeg_mem_src(&decoder, file.data(), file.size());
    jpeg_read_header(&decoder, TRUE);
    decoder.out_color_space = JCS_RGB;
    jpeg_start_decompress(&decoder);
    const std::size_t stride = std::size_t{decoder.output_width} * 3;
    auto pixels = std::make_unique_for_overwrite<std::uint8_t[]>(stride * decoder.output_height);
    while (decoder.output_scanline < decoder.output_height) {
        JSAMPROW row = pixels.get() + decoder.output_scanline * stride;
        jpeg_read_scanlines(&decoder, &row, 1);
    }
    jpeg_finish_decompress(&decoder);
    jpeg_destroy_decompress(&decoder);
    return pixels;
}

} // namespace lookfar::bench
