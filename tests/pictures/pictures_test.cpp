#include "pictures/jpeg_decoder.h"
#include "pictures/png_chunks.h"
#include "pictures/readable_pictures.h"
#include "runtime/pictures/picture_loader.h"
#include "support/failure_of.h"
#include "support/pictures.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

namespace lookfar::testing {
namespace {

std::string refusal_of(const Bytes& bytes) {
    const auto failure = failure_of([&] { decode_pixels(bytes); });
    if (!failure)
        return "none";
    const bool is_unknown = failure->Description == "The camera's answer is not a picture.";
    EXPECT_EQ(failure->Kind,
              is_unknown ? FailureKind::unknown_picture_format : FailureKind::invalid_picture);
    return failure->Description;
}

Bytes bytes_of(const std::string& text) {
    return {text.begin(), text.end()};
}

/// A picture of those from which the fuzzer starts.
Bytes sample(const std::string& name) {
    return bytes_of(content_of(LOOKFAR_SAMPLES "/" + name));
}

/// A JPEG with so many scans of no use before its end, and with more behind it.
Bytes with_scans(int count) {
    // A scan's header may hold what looks like another one.
    const Bytes scan{0xFF, 0xDA, 0x00, 0x04, 0xFF, 0xDA, 0x11, 0xFF, 0x00};
    Bytes jpeg = picture_file(16, 16);
    jpeg.insert(jpeg.end(), scan.begin(), scan.end());
    for (int number = 0; number < count; ++number)
        jpeg.insert(jpeg.end() - 2 - std::ssize(scan), scan.begin(), scan.end());
    return jpeg;
}

TEST(Pictures, ArePaddedWithZerosInWhateverMemoryTheyGet) {
    const auto allocate = [](std::size_t size) {
        auto memory = allocate_pixels(size);
        std::fill_n(memory.get(), size, std::uint8_t{0xEE});
        return memory;
    };
    for (const char* format : {"jpg", "png"}) {
        const Pixels pixels = decode_pixels(picture_file(5, 3, 0x102030, format), allocate);
        for (const int row : {0, 1, 2})
            EXPECT_EQ(pixels.bytes[row * 16 + 15], 0) << format << row;
    }
}

TEST(Pictures, LoseThePngTextsAndNothingElse) {
    constexpr int end_of_first_chunk = 33;
    constexpr std::size_t signature_size = 8;
    const Bytes file = picture_file(5, 3, 0x102030, "png");
    for (const std::string type : {"tEXt", "zTXt", "iTXt"}) {
        const Bytes text = bytes_of(std::string("\0\0\0\1", 4) + type + "?1234");
        const Bytes of_untrue_length = bytes_of("\xFF\xFF\xFF\xFF" + type + "?1234");
        Bytes told = file;
        told.insert(told.begin() + end_of_first_chunk, text.begin(), text.end());
        told.insert(told.end(), text.begin(), text.end());
        told.insert(told.end(), of_untrue_length.begin(), of_untrue_length.end());
        EXPECT_EQ(without_png_texts(told), file) << type;
        EXPECT_EQ(decode_pixels(told).width, 5) << type;
    }
    for (std::size_t size = signature_size; size < file.size(); ++size) {
        const Bytes cut(file.begin(), file.begin() + static_cast<std::ptrdiff_t>(size));
        EXPECT_EQ(without_png_texts(cut), cut);
    }
}

PictureReference load(const DecodedBodyReference& body, const Bytes& file) {
    const TemporaryFolder folder;
    write_file("picture", {file.begin(), file.end()});
    return PictureLoader(*make_posix_disk(), body).LoadPicture("picture");
}

TEST(Pictures, AreLoadedAsObjectsOfTheirOwnOnPixelsThatNeverChange) {
    Bytes file = picture_file(40, 30);
    auto body = decoded_body(file, decoded_picture(file), "");
    const std::weak_ptr pixels = std::get<Pixels>(body->picture).bytes;
    const Bytes tail = detailed_jpeg(100, 100);
    file.insert(file.end(), tail.begin() + 500, tail.end());
    EXPECT_EQ(decode_pixels(file).width, 40) << "a picture ends where it ends";
    const auto first = load(body, file);
    const auto second = load(body, file);
    EXPECT_NE(first, second);
    EXPECT_EQ(first->bytes().data(), second->bytes().data()) << "decoded once";

    const std::uint8_t raw = first->bytes()[0];
    for (const auto& edited : {first, second}) {
        for (int time = 0; time < 2; ++time)
            edited->rewrite([](auto old_bytes, auto new_bytes) {
                new_bytes[0] = static_cast<std::uint8_t>(old_bytes[0] + 1);
            });
        EXPECT_EQ(edited->bytes()[0], raw + 2) << "an edit goes on from the one before";
        EXPECT_EQ(edited->revision(), 2U);
    }
    EXPECT_EQ(load(body, file)->bytes()[0], raw);
    EXPECT_THROW(load(body, picture_file(41, 30)), Failure) << "another program's picture";
    body.reset();
    EXPECT_TRUE(pixels.expired()) << "pictures with bytes of their own keep only their file";
    EXPECT_EQ(first->original()->bytes->size() + tail.size() - 500, file.size());
}

/// A picture of 32 x 16 pixels with a white corner and an orientation mark.
Bytes marked_picture(const std::string& format, std::uint8_t mark) {
    const Bytes file = picture_with_white_corner(32, 16, format.c_str());
    std::string marked(file.begin(), file.end());
    std::string exif("MM\0*\0\0\0\x08\0\x01\x01\x12\0\3\0\0\0\1\0?\0\0\0\0\0\0", 26);
    exif[exif.find('?')] = static_cast<char>(mark);
    if (format == "jpg")
        marked.insert(2, std::string("\xFF\xE1\0\x22"
                                     "Exif\0\0",
                                     10) +
                             exif);
    if (format == "png")
        marked.insert(33, std::string("\0\0\0\x1A"
                                      "eXIf",
                                      8) +
                              exif + "1234");
    if (format == "webp") {
        marked.insert(12, std::string("VP8X\x0A\0\0\0\x08\0\0\0\x1F\0\0\x0F\0\0", 18));
        marked += std::string("EXIF\x1A\0\0\0", 8) + exif;
        marked.replace(
            4, 2,
            {static_cast<char>(marked.size() - 8), static_cast<char>((marked.size() - 8) >> 8U)});
    }
    return bytes_of(marked);
}

TEST(Pictures, LieAsTheirOrientationMarkSays) {
    const struct {
        std::uint8_t mark;
        int width;
        int column;
        int row;
    } cases[] = {{1, 32, 0, 0}, {2, 32, 31, 0}, {3, 32, 31, 15}, {4, 32, 0, 15},
                 {5, 16, 0, 0}, {6, 16, 15, 0}, {7, 16, 15, 31}, {8, 16, 0, 31}};
    for (const char* format : {"jpg", "png", "webp"})
        for (const auto& [mark, width, column, row] : cases) {
            const Picture picture(decode_pixels(marked_picture(format, mark)));
            ASSERT_EQ(std::pair(picture.width(), picture.height()), std::pair(width, 48 - width))
                << format << int{mark};
            const int place = row * picture.stride() + column * 3;
            EXPECT_GT(picture.bytes().data()[place], 200) << format << int{mark};
        }
}

TEST(Pictures, AreDecodedUpToTheLargestSize) {
    constexpr int width = 8000;
    constexpr int height = 5000;
    static_assert(1LL * width * height == max_pixels);
    for (const char* format : {"jpg", "png"}) {
        const Pixels pixels = decode_pixels(picture_file(width, height, 0x336699, format));
        EXPECT_EQ(std::pair(pixels.width, pixels.height), std::pair(width, height)) << format;
    }
    EXPECT_NE(refusal_of(picture_file(width, height + 1)), "none");
    EXPECT_EQ(decode_pixels(sample("cmyk.jpg")).width, 9);
}

TEST(Pictures, OfFourChannelsOfTwoBytesAreDecodedUpToASmallerSize) {
    EXPECT_EQ(refusal_of(deep_png(8000, 4160)), "none");
    EXPECT_EQ(refusal_of(deep_png(8000, 4170)), "The picture is too large: 8000 x 4170 pixels.");
}

TEST(Pictures, AreRefusedWithAReason) {
    const Bytes whole = detailed_jpeg(64, 64);
    const Bytes bitmap = picture_file(64, 64, 0x336699, "bmp");
    Bytes of_lowest_height = bitmap;
    of_lowest_height[22] = 0;
    of_lowest_height[25] = 0x80;
    const Bytes network = picture_file(64, 64, 0x336699, "png");
    Bytes wrecked = picture_file(40, 30, 0x336699, "png");
    std::fill(wrecked.end() - 40, wrecked.end(), std::uint8_t{0});
    const Bytes unknown_chunk = bytes_of(std::string("\0\0\0\0"
                                                     "ABCD\xDB\x17\x20\xA5",
                                                     12));
    Bytes extended = network;
    extended.insert(extended.begin() + 33, unknown_chunk.begin(), unknown_chunk.end());
    const auto frame = std::ranges::search(whole, Bytes{0xFF, 0xC0}).begin() - whole.begin();
    Bytes of_twelve_bits = whole;
    of_twelve_bits[static_cast<std::size_t>(frame) + 4] = 12;
    Bytes lossless = whole;
    lossless[static_cast<std::size_t>(frame) + 1] = 0xC3;
    const std::string not_decodable = "of a kind that can't be decoded";
    const auto cut = [](const Bytes& file, std::ptrdiff_t missing) {
        return Bytes(file.begin(), file.end() - missing);
    };
    const struct {
        const char* name;
        Bytes bytes;
        std::string reason;
    } cases[] = {
        {"nothing", {}, "not a picture"},
        {"a drawing", bytes_of("<svg xmlns='http://www.w3.org/2000/svg'/>"), "not a picture"},
        {"the start of a BMP", {bitmap.begin(), bitmap.begin() + 20}, "ends too early"},
        {"a BMP without its last byte", cut(bitmap, 1), "ends too early"},
        {"a PNG cut in its pixels", cut(network, 40), "ends too early"},
        {"the start of a JPEG", {whole.begin(), whole.begin() + 3}, "ends too early"},
        {"a wrecked PNG", wrecked, not_decodable},
        {"a PNG with a chunk that matters and isn't known", extended, not_decodable},
        {"a JPEG of twelve bits", of_twelve_bits, not_decodable},
        {"a lossless JPEG", lossless, not_decodable},
        {"a bitmap of the lowest height", of_lowest_height, not_decodable},
    };
    for (const auto& [name, bytes, reason] : cases) {
        const std::string refusal = refusal_of(bytes);
        EXPECT_NE(refusal, "none") << name;
        EXPECT_NE(refusal.find(reason), std::string::npos) << name << refusal;
    }
}

TEST(Pictures, MayHaveTheirTopRowFirstInABitmap) {
    const Picture picture(decode_pixels(sample("top-down.bmp")));
    EXPECT_EQ(std::pair(picture.width(), picture.height()), std::pair(9, 7));
    EXPECT_EQ(picture.bytes()[0], 0) << "the first row in the file is blue, the last one red";
    EXPECT_EQ(picture.bytes()[2], 255);
}

TEST(Pictures, ThatBreakOffAnywhereAreRefused) {
    Bytes gif = sample("plain.gif");
    gif.pop_back(); // What follows the last block ends nothing.
    for (const Bytes& file : {gif, sample("lossy.webp")}) {
        EXPECT_EQ(refusal_of(file), "none");
        for (std::size_t length = 12; length < file.size(); ++length) {
            Bytes part(file.begin(), file.begin() + static_cast<std::ptrdiff_t>(length));
            EXPECT_EQ(refusal_of(part), "The picture ends too early.") << file[1] << length;
            if (file[0] == 'R') {
                part[4] = static_cast<std::uint8_t>(length - 8);
                part[5] = static_cast<std::uint8_t>((length - 8) >> 8U);
                EXPECT_NE(refusal_of(part), "none") << "with a length that fits " << length;
            }
        }
    }
}

TEST(Pictures, OfTheJpegKindAreCutShortWithoutTheirLastMarker) {
    const Bytes whole = detailed_jpeg(64, 64);
    EXPECT_FALSE(is_cut_short_jpeg(whole));
    for (std::size_t length = 2; length + 1 < whole.size(); ++length) {
        const Bytes cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));
        EXPECT_TRUE(is_cut_short_jpeg(cut)) << length;
        EXPECT_LE(count_jpeg_scans(cut), 1) << length;
    }
    // An end marker inside a segment, such as a thumbnail's, ends nothing.
    const Bytes thumbnail{0xFF, 0xD8, 0xFF, 0xE1, 0x00, 0x06, 0xFF, 0xD9, 0xFF, 0xD9};
    EXPECT_TRUE(is_cut_short_jpeg(thumbnail));
    // A restart marker has no length.
    const Bytes restarted{0xFF, 0xD8, 0xFF, 0xD0, 0x7F, 0xFF, 0xFF, 0xD9};
    EXPECT_FALSE(is_cut_short_jpeg(restarted));
}

TEST(Pictures, OfTheJpegKindMayHaveFewerScansTheLargerTheyAre) {
    const Bytes scanned = with_scans(99);
    EXPECT_EQ(count_jpeg_scans(scanned), 100);
    EXPECT_NO_THROW(refuse_many_scans(scanned, 2000, 2000));
    EXPECT_THROW(refuse_many_scans(scanned, 2000, 2001), Failure);
}

} // namespace
} // namespace lookfar::testing
