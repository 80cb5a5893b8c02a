#include "demo/gif_writer.h"

#include <gif_lib.h>

#include <algorithm>
#include <memory>
#include <stdexcept>

namespace lookfar::demo {

namespace {

struct FileEnd {
    void operator()(GifFileType* gif) const { EGifCloseFile(gif, nullptr); }
};

using Gif = std::unique_ptr<GifFileType, FileEnd>;
using Palette = std::unique_ptr<ColorMapObject, decltype(&GifFreeMapObject)>;

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

Palette palette_of(const QImage& indexed) {
    constexpr int colour_count = 256;
    Palette palette(GifMakeMapObject(colour_count, nullptr), GifFreeMapObject);
    check(palette != nullptr);
    std::ranges::transform(indexed.colorTable(), palette->Colors, gif_colour);
    return palette;
}

void write(GifFileType* gif, QImage indexed) {
    constexpr int bits_per_colour = 8;
    const int width = indexed.width();
    const int height = indexed.height();
    const Palette palette = palette_of(indexed);
    check(EGifPutScreenDesc(gif, width, height, bits_per_colour, 0, palette.get()) == GIF_OK);
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
