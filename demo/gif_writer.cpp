#include "demo/gif_writer.h"

#include <gif_lib.h>

#include <algorithm>
#include <array>
#include <memory>
#include <stdexcept>

namespace lookfar::demo {

namespace {

struct FileEnd {
    void operator()(GifFileType* gif) const { EGifCloseFile(gif, nullptr); }
};

using Gif = std::unique_ptr<GifFileType, FileEnd>;

int append(GifFileType* gif, const GifByteType* bytes, int count) {
    auto& file = *static_cast<std::string*>(gif->UserData);
    file.append(reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(count));
    return count;
}

void check(bool is_done) {
    if (!is_done)
        throw std::runtime_error("cannot encode a GIF picture");
}

GifColorType gif_colour(QRgb colour) {
    return {static_cast<GifByteType>(qRed(colour)), static_cast<GifByteType>(qGreen(colour)),
            static_cast<GifByteType>(qBlue(colour))};
}

void write(GifFileType* gif, QImage indexed) {
    constexpr int bits = 8;
    std::array<GifColorType, 1 << bits> colours{};
    std::ranges::transform(indexed.colorTable(), colours.begin(), gif_colour);
    const ColorMapObject palette{colours.size(), bits, false, colours.data()};
    const int width = indexed.width();
    const int height = indexed.height();
    check(EGifPutScreenDesc(gif, width, height, bits, 0, &palette) == GIF_OK);
    check(EGifPutImageDesc(gif, 0, 0, width, height, false, nullptr) == GIF_OK);
    for (int row = 0; row < height; ++row)
        check(EGifPutLine(gif, indexed.scanLine(row), width) == GIF_OK);
}

} // namespace

std::string to_gif(const QImage& picture) {
    const QImage opaque = picture.convertToFormat(QImage::Format_RGB32);
    std::string file;
    Gif gif(EGifOpen(&file, append, nullptr));
    check(gif != nullptr);
    write(gif.get(), opaque.convertToFormat(QImage::Format_Indexed8));
    gif.reset();
    return file;
}

} // namespace lookfar::demo
