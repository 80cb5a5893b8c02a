#include "demo/hostile_pictures.h"

#include "demo/picture_answer.h"
#include "demo/scenes.h"

#include <QBuffer>
#include <QByteArray>
#include <QImageWriter>

namespace lookfar::demo {

namespace {

constexpr QSize small(160, 120);

std::string repeated(const std::string& piece, int count) {
    return QByteArray::fromStdString(piece).repeated(count).toStdString();
}

QImage small_image() {
    return picture_of(paint_harbour, small, {QDateTime(QDate(2001, 6, 21), QTime(12, 0)), 0});
}

QImage plain_image(QSize size) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(0xFF336699U);
    return image;
}

} // namespace

Answer small_picture() {
    return picture_answer(small_image(), PictureFormat::jpeg);
}

Answer huge_picture() {
    // The frame header has marker, length and depth before height and width, two bytes each.
    constexpr std::size_t height_offset = 5;
    constexpr std::string_view claimed_size = "\xEA\x60\xEA\x60";
    Answer answer = small_picture();
    answer.body.replace(answer.body.find("\xFF\xC0") + height_offset, claimed_size.size(),
                        claimed_size);
    return answer;
}

Answer truncated_picture() {
    Answer answer = small_picture();
    answer.body.resize(answer.body.size() / 2);
    return answer;
}

Answer plain_picture(QSize size) {
    return picture_answer(plain_image(size), PictureFormat::jpeg);
}

Answer picture_with_large_metadata() {
    constexpr std::size_t after_start_marker = 2;
    constexpr std::size_t longest_segment = 2 + 0xFFFF;
    std::string segment("\xFF\xE1\xFF\xFF"
                        "Exif\0\0MM\0*",
                        14);
    segment.resize(longest_segment, '\0');
    Answer answer = small_picture();
    answer.body.insert(after_start_marker, repeated(segment, 160));
    return answer;
}

Answer picture_of_many_scans() {
    QBuffer file;
    QImageWriter writer(&file, "jpeg");
    writer.setProgressiveScanWrite(true);
    writer.write(plain_image(small));
    std::string jpeg = file.data().toStdString();
    const std::string end_marker = jpeg.substr(jpeg.size() - 2);
    jpeg.resize(jpeg.size() - end_marker.size());
    const std::string last_scan = jpeg.substr(jpeg.rfind("\xFF\xDA"));
    return {.content_type = "image/jpeg", .body = jpeg + repeated(last_scan, 10'000) + end_marker};
}

Answer long_animation() {
    constexpr std::size_t header_and_palette = 6 + 7 + 3 * 256;
    Answer answer = picture_answer(plain_image(small), PictureFormat::gif);
    answer.body.pop_back();
    answer.body += repeated(answer.body.substr(header_and_palette), 9'999) + ";";
    return answer;
}

Answer deflate_bomb() {
    constexpr qsizetype inflated = qsizetype{80} * 1024 * 1024;
    constexpr qsizetype length_that_qt_adds = 4;
    Answer answer = small_picture();
    answer.body = qCompress(QByteArray(inflated, '\0')).mid(length_that_qt_adds).toStdString();
    answer.headers = {{"Content-Encoding", "deflate"}};
    return answer;
}

Answer pixel_bomb() {
    QImage image(20'000, 20'000, QImage::Format_Mono);
    image.fill(0);
    return picture_answer(image, PictureFormat::png);
}

Answer text_bomb() {
    constexpr std::size_t length_field = 4;
    QImage image = small_image();
    image.setText("Comment", QString(7'800'000, 'a'));
    Answer answer = picture_answer(image, PictureFormat::png);
    const std::size_t text = answer.body.find("zTXt") - length_field;
    const std::size_t pixels = answer.body.find("IDAT") - length_field;
    answer.body.insert(text, repeated(answer.body.substr(text, pixels - text), 64));
    return answer;
}

} // namespace lookfar::demo
